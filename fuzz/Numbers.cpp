// Numbers in texts and in DWORD settings.

#include <algorithm>
#include <limits>

#include "fuzz/Input.h"
#include "support/Text.h"

namespace {

/// Sign and digits at the start, exact far beyond the limits in question.
__int128 leadingNumber(std::wstring_view text) {
    const bool isNegative = !text.empty() && text.front() == L'-';
    if (isNegative || (!text.empty() && text.front() == L'+')) text.remove_prefix(1);
    constexpr __int128 kFarBeyond = 1'000'000'000'000;
    __int128 value = 0;
    for (std::size_t i = 0; i < text.size() && text[i] >= L'0' && text[i] <= L'9'; ++i)
        value = std::min(value * 10 + (text[i] - L'0'), kFarBeyond);
    return isNegative ? -value : value;
}

void checkTexts(const std::wstring& text) {
    const std::wstring_view trimmed = zelbar::trimmed(text);
    FUZZ_EXPECT(trimmed.empty() || (trimmed.front() != L' ' && trimmed.back() != L' '));
    FUZZ_EXPECT(text.find_first_not_of(L' ') == std::wstring::npos ||
                text.find(trimmed) != std::wstring::npos);
    FUZZ_EXPECT(zelbar::untilNul(text) == std::wstring(text.c_str()));

    const __int128 exact = leadingNumber(trimmed);
    const auto clamped = std::clamp<__int128>(exact, std::numeric_limits<std::int32_t>::min(),
                                              std::numeric_limits<std::int32_t>::max());
    FUZZ_EXPECT(zelbar::leadingInteger(text) == clamped);

    const __int128 untrimmed = leadingNumber(text);
    const bool fits = untrimmed >= -32768 && untrimmed <= 32767;
    const auto narrow = zelbar::leadingInteger16(text);
    FUZZ_EXPECT(narrow.has_value() == fits);
    FUZZ_EXPECT(!fits || *narrow == untrimmed);
}

/// The literal written out, and read back as Basic reads it.
std::wstring expectedDword(std::string_view bytes) {
    std::string literal;
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned>(static_cast<unsigned char>(*byte)));
        literal += digits;
    }
    const auto value = static_cast<std::uint32_t>(std::strtoul(literal.c_str(), nullptr, 16));
    return std::to_wstring(literal.size() <= 4 ? std::int32_t{static_cast<std::int16_t>(value)}
                                               : static_cast<std::int32_t>(value));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    std::string_view bytes = input.line().substr(0, 4);
    bytes = bytes.substr(0, bytes.find('\0'));
    FUZZ_EXPECT(zelbar::decodedDword(bytes) == expectedDword(bytes));
    const std::wstring digits = zelbar::hexadecimal(static_cast<std::uint32_t>(size * 2654435761u));
    FUZZ_EXPECT(std::stoul(digits, nullptr, 16) == static_cast<std::uint32_t>(size * 2654435761u));
    checkTexts(input.text(std::wstring_view(L"0123456789-+   x\0", 17)));
    return 0;
}
