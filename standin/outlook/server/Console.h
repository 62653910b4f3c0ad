#pragma once

#include <string_view>

namespace standin::outlook {

// A line of UTF-8 text on the standard output or the standard error.
void printLine(std::wstring_view text);
void printError(std::wstring_view text);
// Lets go of what the starter's standard handles lead to, so that nobody waits for this process to close
// them.
void releaseStandardHandles();

}  // namespace standin::outlook
