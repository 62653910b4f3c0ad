#pragma once

#include <string>

namespace benchmark {

/// What became of a program.
struct ChildRun {
    double seconds = 0;
    double mostMegabytes = 0;  ///< Of its own memory, as often as it was looked at: twenty times a second.
    unsigned long exitStatus = 0;
};

/// Runs a program that lies beside this one, its output thrown away. Throws std::runtime_error when it cannot
/// be started.
ChildRun runBeside(const std::wstring& commandLine);

/// The own memory of a process in megabytes, and its handles.
struct Holdings {
    double megabytes = 0;
    unsigned long handles = 0;
};
Holdings holdingsOf(void* process);

}  // namespace benchmark
