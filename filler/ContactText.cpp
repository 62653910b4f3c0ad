#include "filler/ContactText.h"

#include <algorithm>
#include <cwctype>
#include <string_view>

namespace filler {
namespace {

bool isSpace(wchar_t c) {
    constexpr wchar_t kNoBreakSpace = 0xA0;
    return std::iswspace(c) || c == kNoBreakSpace;
}

std::wstring tidied(std::wstring_view text) {
    std::wstring result;
    for (const wchar_t c : text) {
        if (!isSpace(c)) {
            result += c;
        } else if (!result.empty() && result.back() != L' ') {
            result += L' ';
        }
    }
    if (!result.empty() && result.back() == L' ') result.pop_back();
    return result;
}

std::wstring trimmed(std::wstring_view text) {
    const auto first = std::find_if_not(text.begin(), text.end(), isSpace);
    const auto last = std::find_if_not(text.rbegin(), std::make_reverse_iterator(first), isSpace).base();
    return std::wstring(first, last);
}

std::wstring cut(std::wstring text) {
    constexpr wchar_t kFirstHalf = 0xD800, kSecondHalf = 0xDC00;
    if (text.size() <= kWidestText) return text;
    text.resize(kWidestText);
    // Half a surrogate pair is no character.
    if (text.back() >= kFirstHalf && text.back() < kSecondHalf) text.pop_back();
    return text;
}

}  // namespace

std::wstring searchName(const NameParts& parts) {
    std::wstring name = tidied(parts.last + L" " + parts.first);
    if (name.empty()) name = tidied(parts.company);
    if (name.empty()) name = tidied(parts.fileAs);
    return cut(std::move(name));
}

std::vector<std::wstring> storedNumbers(const std::vector<std::wstring>& numbers) {
    std::vector<std::wstring> result;
    for (const std::wstring& number : numbers) {
        std::wstring text = trimmed(number);
        if (text.empty() || text.size() > kWidestText) continue;
        if (std::find(result.begin(), result.end(), text) == result.end()) result.push_back(std::move(text));
    }
    return result;
}

}  // namespace filler
