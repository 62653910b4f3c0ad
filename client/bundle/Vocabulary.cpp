#include "client/bundle/Vocabulary.h"

#include <windows.h>

#include <algorithm>

#include "client/bundle/FileText.h"

namespace pimcall::bundle {
namespace {

constexpr std::size_t kShortestText = 4;
/// The product's texts at both ends of a line are shorter.
constexpr std::size_t kLongestEnd = 120;

bool isPrintable(wchar_t c) {
    return c >= L' ' && c <= L'~';
}

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Calls `visit` with each word of a text.
template <class Visit>
void eachWord(std::wstring_view text, const Visit& visit) {
    for (std::size_t i = 0; i < text.size();) {
        const auto first =
            std::find_if(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(), isWordCharacter);
        const auto last = std::find_if_not(first, text.end(), isWordCharacter);
        if (first != last) visit(std::wstring_view(first, last));
        i = static_cast<std::size_t>(last - text.begin()) + (last == text.end() ? 0 : 1);
    }
}

}  // namespace

bool isWordCharacter(wchar_t c) {
    if (c < 0x80) return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
    const bool isPunctuation = c == 0xA0 || (c >= 0x2000 && c <= 0x206F) || c == 0x3000;
    return !isPunctuation;
}

std::wstring caseFolded(std::wstring_view text) {
    std::wstring result(text);
    CharLowerBuffW(result.data(), static_cast<DWORD>(result.size()));
    return result;
}

void Vocabulary::learnFrom(const std::wstring& file) {
    const std::string bytes = fileBytes(file, kWholeFile);
    std::wstring text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto unit = static_cast<wchar_t>(static_cast<unsigned char>(bytes[i]) |
                                               static_cast<unsigned char>(bytes[i + 1]) << 8);
        if (isPrintable(unit)) {
            text += unit;
            continue;
        }
        if (text.size() >= kShortestText) learn(text);
        text.clear();
    }
}

void Vocabulary::learn(std::wstring_view text) {
    // An example of a number might be somebody's.
    constexpr auto kMostDigits = 5;
    if (std::ranges::count_if(text, isDigit) > kMostDigits) return;
    texts_.emplace(text);
    eachWord(text, [&](std::wstring_view word) { words_.insert(caseFolded(word)); });
}

void Vocabulary::forget(std::wstring_view text) {
    eachWord(text, [&](std::wstring_view word) { words_.erase(caseFolded(word)); });
}

bool Vocabulary::hasWord(std::wstring_view word) const {
    return words_.contains(caseFolded(word));
}

std::wstring_view Vocabulary::beginning(std::wstring_view text) const {
    for (std::size_t length = std::min(text.size(), kLongestEnd); length >= kShortestText; --length) {
        const bool cutsWord =
            length < text.size() && isWordCharacter(text[length - 1]) && isWordCharacter(text[length]);
        if (!cutsWord && texts_.contains(text.substr(0, length))) return text.substr(0, length);
    }
    return {};
}

std::wstring_view Vocabulary::ending(std::wstring_view text) const {
    for (std::size_t length = std::min(text.size(), kLongestEnd); length >= kShortestText; --length) {
        const std::wstring_view end = text.substr(text.size() - length);
        if (!isWordCharacter(end.front()) && texts_.contains(end)) return end;
    }
    return {};
}

}  // namespace pimcall::bundle
