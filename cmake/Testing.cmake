# Ours against another build's registration would test the wrong programs: this one goes first.
add_test(NAME registration COMMAND "${PROJECT_SOURCE_DIR}/scripts/register")
set_tests_properties(registration PROPERTIES
    FIXTURES_SETUP registered
    ENVIRONMENT "TESSARIA_BUILD=${PROJECT_BINARY_DIR}")

# zelbar_test(<name> SOURCES ... [LIBS ...] [TIMEOUT seconds] [SERIAL] [REGISTERED])
# Makes test_<name>.exe out of the sources, GoogleTest and our harness (which brings main), and registers it
# with ctest. SERIAL keeps it from running beside others (for tests that need the desktop, or a server, alone);
# REGISTERED says that it activates driver or stand-ins through the registry.
function(zelbar_test name)
    cmake_parse_arguments(arg "SERIAL;REGISTERED" "TIMEOUT" "SOURCES;LIBS" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set(program test_${name})
    add_executable(${program} ${arg_SOURCES})
    target_compile_options(${program} PRIVATE -O1)
    target_link_libraries(${program} PRIVATE ${arg_LIBS} test_harness gtest project_options)
    # Wine shows the Unix file system as drive Z:.
    add_test(NAME ${name}
        COMMAND ${program} "--gtest_output=xml:Z:${PROJECT_BINARY_DIR}/test-results/${name}.xml")
    # A program that hangs ends itself a little earlier, and says in which test.
    math(EXPR seconds "${arg_TIMEOUT} - 5")
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${arg_TIMEOUT}
        ENVIRONMENT "ZELBAR_TEST_SECONDS=${seconds}")
    if(arg_REGISTERED)
        set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED registered)
    endif()
    if(arg_SERIAL)
        set_tests_properties(${name} PROPERTIES RUN_SERIAL TRUE)
    endif()
endfunction()

# Every source file of ours must be as clang-format lays it out.
file(GLOB_RECURSE our_sources CONFIGURE_DEPENDS
    module/*.h
    module/*.cpp
    driver/*.h
    driver/*.cpp
    standin/*.h
    standin/*.cpp
    client/*.h
    client/*.cpp
    filler/*.h
    filler/*.cpp
    numbers/*.h
    numbers/*.cpp
    tests/*.h
    tests/*.cpp
    fuzz/*.h
    fuzz/*.cpp
    benchmark/*.h
    benchmark/*.cpp
    docs/*.cpp
    packaging/*.cpp
    scripts/*.cpp)
add_test(NAME formatting COMMAND clang-format --dry-run -Werror ${our_sources})

add_test(NAME includes COMMAND "${PROJECT_SOURCE_DIR}/scripts/check-includes")
add_test(NAME shell-scripts COMMAND "${PROJECT_SOURCE_DIR}/scripts/lint-shell")

# driver_test(<name> SOURCES ...): a test program that is a driver of its own, resources included.
function(driver_test name)
    zelbar_test(${name} ${ARGN} LIBS driver_fixture com_resources driver_resources REGISTERED)
endfunction()
