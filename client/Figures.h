#pragma once

#include <string>

namespace pimcall {

/// A size as people say it: "312 bytes", "47 KB", "3.2 MB".
std::wstring bytesText(unsigned long long bytes);

/// "1 row", "2 rows".
std::wstring counted(long count, const std::wstring& what);

}  // namespace pimcall
