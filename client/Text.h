#pragma once

#include <string>
#include <string_view>

namespace pimcall {

/// The bytes of a text. Half a surrogate pair, which has no bytes of its own, becomes U+FFFD.
std::string utf8(std::wstring_view text);

/// A text on one line of a screen: each control character becomes a blank, so that a name from an address
/// book can neither break the layout nor steer a terminal.
std::wstring oneLine(std::wstring_view text);

/// U+0000 to U+001F and U+007F to U+009F.
bool isControl(wchar_t unit);

}  // namespace pimcall
