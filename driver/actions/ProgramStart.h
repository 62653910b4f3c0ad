#pragma once

#include <windows.h>

#include <string>

#include "actions/CommandLine.h"

namespace zelbar {

struct StartResult {
    /// 0, or the system's error number.
    DWORD error;
    /// What was found in the command line; empty when nothing was.
    std::wstring file;
};

/// Starts what a command line names, with a normal window that has the focus, and does not wait for it. The
/// line is read as the system's shell would: a program with or without quotes around blanks, a batch file, or
/// a document whose application the user's settings name. Only the user's own part of the line is searched
/// for it; and where the command interpreter would read the line, nothing is started with details in it that
/// mean something to the interpreter.
StartResult startProgram(const CommandLine& line);

}  // namespace zelbar
