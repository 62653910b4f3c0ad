#pragma once

#include <string>

#include "support/Handle.h"

namespace zelbar {

/// A text file that lines are added to; others may read, copy and delete it meanwhile.
///
/// It is written in UTF-8: the lines name contacts in any language, and one code page would lose most of
/// them. A line in plain English looks the same either way.
class LineFile {
  public:
    /// Goes on behind what the file holds. False when it cannot be opened; lines are dropped then.
    bool open(const std::wstring& path) noexcept;
    void close() noexcept { file_.reset(); }
    bool isOpen() const noexcept { return static_cast<bool>(file_); }

    /// Hands the line to the system at once, so that a crash of the client keeps it. Swallows failures.
    void write(std::wstring_view line) noexcept;

    /// True while another program, or another object, has the file open for writing.
    static bool isBeingWritten(const std::wstring& path) noexcept;
    /// Makes the file an empty one.
    static void empty(const std::wstring& path) noexcept;

  private:
    FileHandle file_;
};

}  // namespace zelbar
