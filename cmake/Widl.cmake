# Interface definitions: widl turns an .idl file into a C++ header, its identifiers and a type library.
find_program(PERL perl REQUIRED)
find_program(WIDL i686-w64-mingw32-widl REQUIRED)

set(widl_stub_dir "${PROJECT_SOURCE_DIR}/cmake/idl")
set(widl_stub_tlb "${PROJECT_BINARY_DIR}/widl/stdole2.tlb")
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/widl")
add_custom_command(OUTPUT "${widl_stub_tlb}"
    COMMAND ${WIDL} -m32 -I "${widl_stub_dir}" -t -o "${widl_stub_tlb}" "${widl_stub_dir}/stdole2.idl"
    DEPENDS "${widl_stub_dir}/stdole2.idl"
    COMMENT "Type library stdole2.tlb" VERBATIM)
add_custom_target(widl_stdole2 DEPENDS "${widl_stub_tlb}")

# widl_library(<target> <file.idl>)
# Makes <stem>.h, <stem>_i.c and <stem>.tlb in the build folder and a static library <target> that holds the
# identifiers and carries the header's folder (as a system folder, so that our warnings leave it alone).
function(widl_library target idl)
    get_filename_component(idl "${idl}" ABSOLUTE)
    get_filename_component(stem "${idl}" NAME_WE)
    set(dir "${PROJECT_BINARY_DIR}/widl/${target}")
    file(MAKE_DIRECTORY "${dir}")
    set(common -m32 -I "${widl_stub_dir}" -L "${PROJECT_BINARY_DIR}/widl")
    add_custom_command(OUTPUT "${dir}/${stem}.h" "${dir}/${stem}_i.c" "${dir}/${stem}.tlb"
        COMMAND ${WIDL} ${common} -h -o "${dir}/${stem}.h" "${idl}"
        COMMAND ${WIDL} ${common} -u -o "${dir}/${stem}_i.c" "${idl}"
        COMMAND ${WIDL} ${common} -t -o "${dir}/${stem}.tlb" "${idl}"
        COMMAND ${PERL} "${PROJECT_SOURCE_DIR}/cmake/idl/without-time" "${dir}/${stem}.tlb"
        DEPENDS "${idl}" "${widl_stub_dir}/oaidl.idl" "${widl_stub_dir}/without-time" widl_stdole2 "${widl_stub_tlb}"
        COMMENT "Interfaces ${stem}.idl" VERBATIM)
    add_custom_target(${target}_files DEPENDS "${dir}/${stem}.h" "${dir}/${stem}.tlb")
    add_library(${target} STATIC "${dir}/${stem}_i.c" "${dir}/${stem}.h")
    add_dependencies(${target} ${target}_files)
    target_include_directories(${target} SYSTEM PUBLIC "${dir}")
    set_target_properties(${target} PROPERTIES WIDL_DIR "${dir}" WIDL_TLB "${dir}/${stem}.tlb")
endfunction()

# widl_embed(<consumer> <widl target> <file.rc>)
# Lets the consumer's resource script name the type library, as in: 1 TYPELIB "<stem>.tlb"
function(widl_embed consumer target rc)
    get_target_property(dir ${target} WIDL_DIR)
    get_target_property(tlb ${target} WIDL_TLB)
    target_sources(${consumer} PRIVATE "${rc}")
    set_property(SOURCE "${rc}" APPEND PROPERTY OBJECT_DEPENDS "${tlb}")
    set_property(SOURCE "${rc}" APPEND PROPERTY INCLUDE_DIRECTORIES "${dir}")
    add_dependencies(${consumer} ${target}_files)
endfunction()
