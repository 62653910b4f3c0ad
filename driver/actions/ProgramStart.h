#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// Starts what a command line names, with a normal window that has the focus, and does not wait for it. The
/// line is read as the system's shell would: a program with or without quotes around blanks, a batch file, or
/// a document whose application the user's settings name. Returns 0, or the system's error number.
DWORD startProgram(const std::wstring& commandLine);

}  // namespace zelbar
