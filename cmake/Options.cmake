# project_options: what every file of ours is compiled with.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
# The stack is guarded: what is read comes from callers, address books and files of other programs.
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wpedantic -Werror -fstack-protector-strong
    $<$<COMPILE_LANGUAGE:CXX>:-Wshadow -Wconversion -Wold-style-cast>)
target_link_libraries(project_options INTERFACE stack_guard)
# Windows 7 is the oldest system the driver runs on.
target_compile_definitions(project_options INTERFACE
    _WIN32_WINNT=0x0601 WINVER=0x0601 UNICODE _UNICODE NOMINMAX)
target_include_directories(project_options INTERFACE
    "${PROJECT_SOURCE_DIR}" "${PROJECT_SOURCE_DIR}/driver")
