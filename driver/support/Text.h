#pragma once

// Rules for texts and numbers that need no Windows; they also compile natively.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelbar {

/// Without blanks (character 32 only) at both ends.
std::wstring_view trimmed(std::wstring_view text);

/// Up to the first NUL character.
std::wstring_view untilNul(std::wstring_view text);

/// With a blank for each character that ends a line or field, or controls what shows the text.
std::wstring onOneLine(std::wstring_view text);

/// The number at the start of a text: sign and decimal digits, everything behind is ignored; 0 without
/// digits. Nothing when it does not fit into 16 bits.
std::optional<std::int16_t> leadingInteger16(std::wstring_view text);

/// The whole number at the start of a text, blanks before it skipped; 0 without digits, the nearest
/// possible value when it does not fit.
std::int32_t leadingInteger(std::wstring_view text);

/// Upper-case hexadecimal digits without leading zeros.
std::wstring hexadecimal(std::uint32_t value);

/// The decimal text of a DWORD setting as this driver has always decoded it. `bytes` are the stored bytes,
/// lowest first, up to the first zero byte; each is written in hexadecimal without its leading zero, the
/// highest first, and the literal is read back. So 257 (bytes 1, 1) is "17" and 256 (no byte left) is "0".
/// A literal of up to four digits is a signed 16-bit number.
std::wstring decodedDword(std::string_view bytes);

}  // namespace zelbar
