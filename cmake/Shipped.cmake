# What goes for every file that customers get, beside the options of its own code.

# shipped(<target> [IMAGE_BASE address])
# The same sources give the same bytes, wherever and whenever they are built: no time, and a library's address
# not made of its path. No structured exception handlers are registered by code of ours, so that no address in
# it can pass for one. The symbols of the libraries inside would double the files.
function(shipped target)
    cmake_parse_arguments(arg "" "IMAGE_BASE" "" ${ARGN})
    target_link_options(${target} PRIVATE
        -Wl,--no-insert-timestamp -Wl,--no-seh -Wl,--dynamicbase -Wl,--nxcompat
        $<$<CONFIG:Release>:-s>)
    if(arg_IMAGE_BASE)
        target_link_options(${target} PRIVATE -Wl,--image-base,${arg_IMAGE_BASE})
    endif()
endfunction()
