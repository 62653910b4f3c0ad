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
# Wine tells its server of each read that could have been asynchronous: half of the time of a large file's reading.
target_compile_definitions(sqlite3 PRIVATE
    SQLITE_OMIT_LOAD_EXTENSION SQLITE_OMIT_DEPRECATED SQLITE_THREADSAFE=1 SQLITE_DQS=0 SQLITE_WIN32_NO_OVERLAPPED)

# zip files: zlib's own library for them, and of zlib what that needs.
set(ZLIB_SOURCE_DIR "${PROJECT_SOURCE_DIR}/build/tools/zlib" CACHE PATH "Folder that scripts/setup-zlib has made")
set(zip_sources adler32 crc32 deflate inffast inflate inftrees trees zutil
    contrib/minizip/ioapi contrib/minizip/iowin32 contrib/minizip/unzip contrib/minizip/zip)
list(TRANSFORM zip_sources PREPEND "${ZLIB_SOURCE_DIR}/")
list(TRANSFORM zip_sources APPEND ".c")
add_library(zip STATIC EXCLUDE_FROM_ALL ${zip_sources})
target_include_directories(zip SYSTEM PUBLIC "${ZLIB_SOURCE_DIR}" "${ZLIB_SOURCE_DIR}/contrib/minizip")
target_compile_options(zip PRIVATE -w -Os -ffunction-sections -fdata-sections)
target_compile_definitions(zip PRIVATE NOCRYPT NOUNCRYPT)
