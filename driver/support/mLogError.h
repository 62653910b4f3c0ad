#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "automation/Fault.h"
#include "support/Module.h"

namespace zelbar {

/// What an error line reports: a fault, the last system error and a line number, each 0 when there is none.
struct PendingError {
    Fault fault;
    DWORD systemError = 0;
    int line = 0;

    /// The exception being handled. Only inside a catch clause.
    static PendingError caught() noexcept;
    /// The system call that failed just now.
    static PendingError lastSystemError() noexcept;
};

/// The error file: one line for each trapped failure, in the user's documents folder, always on.
class mLogError {
  public:
    /// Sends every line to the debugger as well. Kept for whoever debugs the driver.
    static constexpr bool DebugOutput = false;

    explicit mLogError(Module module);

    /// Appends a line; swallows failures of its own. `formCaption` is null when no window is concerned;
    /// an empty `time` stands for now.
    void LogError(const PendingError& error, std::wstring_view procedure,
                  const wchar_t* formCaption = nullptr, std::wstring_view extra = {},
                  std::wstring_view time = {}) noexcept;

    /// Full path of the error file; empty before the first line, then fixed.
    const std::wstring& ErrorLogFileName() const noexcept { return fileName_; }

  private:
    Module module_;
    std::wstring fileName_;
};

/// Where the error file lies, or would lie once there is a line in it.
std::wstring errorFilePath();

/// The user's documents folder, made if missing; empty when there is none.
std::wstring GetMyDocumentPath();

/// The system's text for an error code.
std::wstring GetSystemErrorText(DWORD code);

/// Name of the current network user, or empty.
std::wstring GetNetUserName();

}  // namespace zelbar
