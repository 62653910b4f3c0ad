#pragma once

#include <windows.h>

#include <string>

#include "client/Writer.h"

namespace pimcall {

/// Writes to one of the standard handles: as UTF-8 into a file or a pipe, and in the console's own wide
/// characters onto a console, whose code page thus does not matter and is left as it is.
class HandleWriter final : public Writer {
  public:
    /// `which`: STD_OUTPUT_HANDLE or STD_ERROR_HANDLE. A handle that is not there swallows what is written.
    explicit HandleWriter(DWORD which);

    void write(std::wstring_view text) override;
    bool isTerminal() const override { return isConsole_; }
    /// Only on a console, and not where the environment has NO_COLOR.
    void colour(Colour colour) override;

  private:
    void writeToConsole(std::wstring_view text);
    void writeBytes(const std::string& bytes);

    HANDLE handle_;
    bool isConsole_;
    WORD usualColours_ = 0;
    bool hasColours_ = false;
};

}  // namespace pimcall
