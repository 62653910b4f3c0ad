#pragma once

#include <string>
#include <string_view>

namespace zelbar {

/// Both replace what cannot be converted (half a surrogate pair, broken bytes) by U+FFFD.
std::string utf8(std::wstring_view text);
std::wstring wide(std::string_view utf8);

}  // namespace zelbar
