#pragma once

#include <string>
#include <string_view>

namespace standin::outlook::vcard {

std::string upper(std::string_view text);

// Soft line breaks must have been joined before.
std::string decodeQuotedPrintable(std::string_view text);

// A value's characters: in the named set if it is known, else UTF-8 if they are that, else Windows' western
// set.
std::wstring decodeCharacters(const std::string& bytes, const std::string& charset);

// A whole file as UTF-8 or 8-bit text, without byte order mark.
std::string withoutByteOrderMark(std::string bytes);

}  // namespace standin::outlook::vcard
