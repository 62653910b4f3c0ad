#pragma once

#include <string>
#include <string_view>

namespace standin::outlook {

std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);
// From any Windows code page; bytes that mean nothing there become a replacement character.
std::wstring fromCodePage(std::string_view bytes, unsigned codePage);

// Case-insensitive for letters of any language.
bool sameText(std::wstring_view left, std::wstring_view right);
std::wstring trimmed(std::wstring_view text);

}  // namespace standin::outlook
