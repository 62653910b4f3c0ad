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
    enum class Mode { kEmpty, kAppend };

    /// False when the file cannot be opened; lines are dropped then.
    bool open(const std::wstring& path, Mode mode) noexcept;
    void close() noexcept { file_.reset(); }
    bool isOpen() const noexcept { return static_cast<bool>(file_); }

    /// Hands the line to the system at once, so that a crash of the client keeps it. Swallows failures.
    void write(std::wstring_view line) noexcept;

  private:
    FileHandle file_;
};

}  // namespace zelbar
