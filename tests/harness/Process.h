#pragma once

#include <windows.h>

#include <string>

namespace harness {

/// A program that has ended, and what it printed, byte by byte.
struct Ended {
    DWORD exitCode = STILL_ACTIVE;
    std::string out;
    std::string error;
};

/// Runs a command line to its end; fails the running test when it does not start or takes longer than a
/// minute. Programs are looked for beside this one first.
Ended run(const std::wstring& commandLine);

/// The same with one of the project's own programs, by its file name.
Ended runOwn(const std::wstring& program, const std::wstring& arguments);

/// The folder of this test program, where the project's own programs lie as well. Without trailing "\".
std::wstring programFolder();

}  // namespace harness
