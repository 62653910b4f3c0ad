#include "numbers/Folding.h"

#include <algorithm>
#include <iterator>

namespace numbers {

namespace {

struct Range {
    wchar_t first;
    wchar_t last;
};

template <std::size_t size>
bool isIn(const Range (&ranges)[size], wchar_t character) {
    return std::any_of(std::begin(ranges), std::end(ranges), [&](const Range& range) {
        return character >= range.first && character <= range.last;
    });
}

constexpr Range kBlanks[] = {{L'\t', L'\t'},   {L' ', L' '},     {0x00A0, 0x00A0},
                             {0x1680, 0x1680}, {0x2000, 0x200A}, {0x202F, 0x202F},
                             {0x205F, 0x205F}, {0x3000, 0x3000}, {0x2022, 0x2022}};
constexpr Range kLineEnds[] = {{0x000A, 0x000D}, {0x0085, 0x0085}, {0x2028, 0x2029}, {L'|', L'|'}};
/// Marks for writing direction and line breaking, and the rest of the control characters.
constexpr Range kWithoutWidth[] = {{0x0000, 0x001F}, {0x007F, 0x009F}, {0x00AD, 0x00AD},
                                   {0x061C, 0x061C}, {0x200B, 0x200F}, {0x202A, 0x202E},
                                   {0x2060, 0x206F}, {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}};
constexpr Range kDashes[] = {{0x2010, 0x2015}, {0x2043, 0x2043}, {0x2212, 0x2212},
                             {0x30FC, 0x30FC}, {0xFE58, 0xFE58}, {0xFE63, 0xFE63}};

/// The digit zero of the scripts that numbers are written in; nine digits follow each.
constexpr wchar_t kZeros[] = {0x0660, 0x06F0, 0x07C0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66,
                              0x0BE6, 0x0C66, 0x0CE6, 0x0D66, 0x0E50, 0x0ED0, 0x0F20};

wchar_t plain(wchar_t character) {
    if (isIn(kBlanks, character)) return L' ';
    if (isIn(kLineEnds, character)) return L';';
    if (isIn(kDashes, character)) return L'-';
    if (character >= 0xFF01 && character <= 0xFF5E) return static_cast<wchar_t>(character - 0xFEE0);
    if (character == 0x207A || character == 0xFE62) return L'+';
    if (character == 0x2044 || character == 0x2215 || character == L'\\') return L'/';
    if (character == L'_' || character == L'~') return L' ';
    if (character == L'{' || character == L'<') return L'(';
    if (character == L'}' || character == L'>') return L')';
    if (character == 0x00B7) return L'.';
    for (const wchar_t zero : kZeros)
        if (character >= zero && character < zero + 10)
            return static_cast<wchar_t>(L'0' + (character - zero));
    return character;
}

}  // namespace

std::wstring folded(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size());
    for (const wchar_t character : text)
        if (isIn(kBlanks, character) || isIn(kLineEnds, character) || !isIn(kWithoutWidth, character))
            result += plain(character);
    return result;
}

}  // namespace numbers
