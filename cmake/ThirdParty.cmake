# Libraries that we do not write ourselves, compiled from source with their own warnings off. (libphonenumber:
# PhoneNumber.cmake.)

set(GTEST_SOURCE_DIR /usr/src/googletest/googletest CACHE PATH "GoogleTest's source folder")
add_library(gtest STATIC EXCLUDE_FROM_ALL "${GTEST_SOURCE_DIR}/src/gtest-all.cc")
target_compile_features(gtest PUBLIC cxx_std_20)
target_include_directories(gtest SYSTEM PUBLIC "${GTEST_SOURCE_DIR}/include" PRIVATE "${GTEST_SOURCE_DIR}")
target_compile_options(gtest PRIVATE -w -O1)

set(SQLITE_SOURCE_DIR "${PROJECT_SOURCE_DIR}/build/tools/sqlite" CACHE PATH "Folder with sqlite3.c and sqlite3.h")
add_library(sqlite3 STATIC EXCLUDE_FROM_ALL "${SQLITE_SOURCE_DIR}/sqlite3.c")
target_include_directories(sqlite3 SYSTEM PUBLIC "${SQLITE_SOURCE_DIR}")
target_compile_options(sqlite3 PRIVATE -w -O2)
target_compile_definitions(sqlite3 PRIVATE
    SQLITE_OMIT_LOAD_EXTENSION SQLITE_OMIT_DEPRECATED SQLITE_THREADSAFE=1 SQLITE_DQS=0)
