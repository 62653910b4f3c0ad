#pragma once

#include <string_view>

namespace pimcall {

/// Where the program's output goes.
class Writer {
  public:
    virtual ~Writer() = default;
    /// Throws `Failure` when the text cannot be written.
    virtual void write(std::wstring_view text) = 0;

    void line(std::wstring_view text) {
        write(text);
        write(L"\n");
    }
};

}  // namespace pimcall
