# What the commands of scripts/instruments build their own folders with; nothing in an ordinary build.
set(INSTRUMENT "" CACHE STRING "traps: undefined behaviour of our own code ends the program; \
coverage: the driver counts its branches")

if(INSTRUMENT STREQUAL "traps")
    # There is no run-time library that could report for this target: an illegal instruction has to do. Texts that
    # SQLite hands over and messages of Windows may lie at any address, which this processor does not mind.
    target_compile_options(project_options INTERFACE
        -O1 -g1 -fno-omit-frame-pointer
        -fsanitize=undefined,float-cast-overflow -fsanitize-undefined-trap-on-error -fno-sanitize=alignment)
elseif(INSTRUMENT STREQUAL "coverage")
    function(count_branches)
        foreach(target automation com support driver_core zelbar00)
            target_compile_options(${target} PRIVATE --coverage -O0 -g1)
        endforeach()
        # Of what headers define the linker takes the copy that it sees first: not one of the tests, which count
        # nothing.
        foreach(room actions com connector core dialogs export search)
            link_first(test_${room} automation com support driver_core)
        endforeach()
        link_first(test_automation automation)
        link_first(test_support automation support)
    endfunction()
    function(link_first program)
        list(TRANSFORM ARGN REPLACE "(.+)" "$<TARGET_FILE:\\1>" OUTPUT_VARIABLE files)
        target_link_options(${program} PRIVATE -Wl,--whole-archive ${files} -Wl,--no-whole-archive)
    endfunction()
    cmake_language(DEFER CALL count_branches)
    add_link_options(--coverage)
endif()
