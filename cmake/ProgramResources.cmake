# What every program and library that we ship carries: the icon (as number 1) and version information.
find_program(PERL perl REQUIRED)

set(resources_dir "${PROJECT_SOURCE_DIR}/resources")
set(program_icon "${PROJECT_BINARY_DIR}/tessaria.ico")
add_custom_command(OUTPUT "${program_icon}"
    COMMAND ${PERL} "${resources_dir}/make-icon" "${program_icon}"
    DEPENDS "${resources_dir}/make-icon"
    COMMENT "Icon" VERBATIM)
add_custom_target(program_icon DEPENDS "${program_icon}")

# program_resources(<target> FILE name.exe|name.dll DESCRIPTION text)
# Adds them to the target; a program gets its manifest too.
function(program_resources target)
    cmake_parse_arguments(arg "" "FILE;DESCRIPTION" "" ${ARGN})
    get_filename_component(internal_name "${arg_FILE}" NAME_WE)
    set(icon "${program_icon}")
    set(filetype VFT_DLL)
    set(manifest "")
    if(arg_FILE MATCHES "\\.exe$")
        set(filetype VFT_APP)
        set(manifest "1 24 \"${resources_dir}/program.manifest\"")
    endif()
    set(script "${CMAKE_CURRENT_BINARY_DIR}/${internal_name}.rc")
    configure_file("${resources_dir}/program.rc.in" "${script}" @ONLY)
    target_sources(${target} PRIVATE "${script}")
    set_source_files_properties("${script}" PROPERTIES
        OBJECT_DEPENDS "${program_icon};${resources_dir}/program.manifest")
    add_dependencies(${target} program_icon)
endfunction()
