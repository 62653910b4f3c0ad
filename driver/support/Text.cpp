#include "support/Text.h"

#include <algorithm>
#include <limits>

namespace zelbar {
namespace {

constexpr bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Sign and digits at the start; a value beyond `limit` stays just above it.
std::int64_t signedNumber(std::wstring_view text, std::int64_t limit) {
    std::int64_t sign = 1;
    if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) {
        if (text.front() == L'-') sign = -1;
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    for (const wchar_t c : text) {
        if (!isDigit(c)) break;
        value = std::min(value * 10 + (c - L'0'), limit + 2);
    }
    return value * sign;
}

}  // namespace

std::wstring_view trimmed(std::wstring_view text) {
    const auto first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring_view untilNul(std::wstring_view text) {
    return text.substr(0, text.find(L'\0'));
}

std::optional<std::int16_t> leadingInteger16(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int16_t>;
    const std::int64_t value = signedNumber(text, Limits::max());
    if (value < Limits::min() || value > Limits::max()) return std::nullopt;
    return static_cast<std::int16_t>(value);
}

std::wstring onOneLine(std::wstring_view text) {
    std::wstring line(text);
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029; },
        L' ');
    return line;
}

std::int32_t leadingInteger(std::wstring_view text) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t value = signedNumber(trimmed(text), Limits::max());
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

std::wstring hexadecimal(std::uint32_t value) {
    std::wstring digits;
    do {
        digits.insert(digits.begin(), L"0123456789ABCDEF"[value % 16]);
        value /= 16;
    } while (value != 0);
    return digits;
}

std::wstring decodedDword(std::string_view bytes) {
    std::uint32_t value = 0;
    std::size_t digits = 0;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        const auto number = static_cast<unsigned char>(*byte);
        const unsigned width = number < 0x10 ? 4 : 8;
        value = (value << width) | number;
        digits += width / 4;
    }
    if (digits <= 4) return std::to_wstring(static_cast<std::int16_t>(value));
    return std::to_wstring(static_cast<std::int32_t>(value));
}

}  // namespace zelbar
