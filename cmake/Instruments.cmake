# What the commands of scripts/instruments build their own folders with; nothing in an ordinary build.
set(INSTRUMENT "" CACHE STRING "traps: undefined behaviour of our own code ends the program")

if(INSTRUMENT STREQUAL "traps")
    # There is no run-time library that could report for this target: an illegal instruction has to do. Texts that
    # SQLite hands over and messages of Windows may lie at any address, which this processor does not mind.
    target_compile_options(project_options INTERFACE
        -O1 -g1 -fno-omit-frame-pointer
        -fsanitize=undefined,float-cast-overflow -fsanitize-undefined-trap-on-error -fno-sanitize=alignment)
endif()
