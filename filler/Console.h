#pragma once

#include <windows.h>

#include <string_view>

namespace filler {

/// One of the two output streams: characters on a console, UTF-8 in a file or a pipe.
class Console {
  public:
    /// STD_OUTPUT_HANDLE or STD_ERROR_HANDLE.
    explicit Console(DWORD stream);

    bool isScreen() const { return isScreen_; }
    void write(std::wstring_view text) const;

  private:
    HANDLE handle_;
    bool isScreen_;
};

}  // namespace filler
