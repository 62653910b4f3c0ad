#pragma once

#include <string>
#include <string_view>

namespace numbers {

/// A field's text in the plain signs that its numbers could have been typed in: digits of every script and
/// full-width signs as ASCII, every blank as " ", every dash as "-", line ends and "|" as ";". Marks without
/// a width are dropped.
std::wstring folded(std::wstring_view text);

}  // namespace numbers
