#pragma once

#include <string>
#include <string_view>

namespace pimcall {

/// A text on one line of a screen: each character that steers one becomes a blank, so that a name from an
/// address book can neither break the layout nor pass for another.
std::wstring oneLine(std::wstring_view text);

/// Control characters, line and paragraph separators, and the marks that turn the direction of writing.
bool steersScreen(wchar_t unit);

}  // namespace pimcall
