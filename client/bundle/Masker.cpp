#include "client/bundle/Masker.h"

#include <algorithm>

namespace pimcall::bundle {
namespace {

/// Shorter ones count things; an extension of two digits is nobody's number.
constexpr std::size_t kLongestCount = 2;

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

std::wstring_view wordAt(std::wstring_view text, std::size_t start) {
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(start);
    return {first, std::find_if_not(first, text.end(), isWordCharacter)};
}

/// What stands between the groups of one number.
bool isSeparator(wchar_t c) {
    return std::wstring_view(L" ()/.-").find(c) != std::wstring_view::npos;
}

/// The number that begins here, groups and all; empty when the first word is no number.
std::wstring_view numberAt(std::wstring_view text, std::size_t start) {
    std::size_t end = start;
    for (std::size_t at = start; at < text.size();) {
        const std::wstring_view group = wordAt(text, at);
        if (group.empty() || !std::ranges::all_of(group, isDigit)) break;
        end = at + group.size();
        // Two signs at most, as in ") ".
        at = end;
        while (at < text.size() && at < end + 2 && isSeparator(text[at])) ++at;
        if (at == end) break;
    }
    return text.substr(start, end - start);
}

std::wstring digitsOf(std::wstring_view number) {
    std::wstring digits;
    std::ranges::copy_if(number, std::back_inserter(digits), isDigit);
    return digits;
}

/// "0x8004010F", as errors are numbered.
bool isErrorCode(std::wstring_view word) {
    constexpr std::wstring_view kDigits = L"0123456789ABCDEF";
    return word.size() > 2 && word.size() <= 10 && word.starts_with(L"0x") &&
           word.find_first_not_of(kDigits, 2) == std::wstring_view::npos;
}

/// Where the text of a line begins behind its date and time: "5/24/2002 2:03:11 PM: text".
std::size_t behindTime(std::wstring_view line) {
    constexpr std::size_t kLongestTime = 30;
    const std::size_t end = line.find(L": ");
    if (end > kLongestTime || !isDigit(line.front())) return 0;
    const std::wstring_view time = line.substr(0, end);
    // Two colons or points of a time, and nothing that makes a telephone number: "+", or one run of digits.
    const bool isTime = time.find(L':') != std::wstring_view::npos &&
                        time.find_first_of(L"/.-") != std::wstring_view::npos &&
                        time.find(L'+') == std::wstring_view::npos;
    return isTime ? end + 2 : 0;
}

}  // namespace

std::wstring Masker::wordFor(std::wstring_view word, Words words) {
    const bool stays = word.size() == 1 || isErrorCode(word) || word == L"True" || word == L"False" ||
                       (words == Words::OfProduct && vocabulary_.hasWord(word));
    return stays ? std::wstring(word) : L"~" + hash_.of(caseFolded(word));
}

std::wstring Masker::numberFor(std::wstring_view text, std::wstring_view number, Words words,
                               Numbers numbers) {
    const auto start = static_cast<std::size_t>(number.data() - text.data());
    const std::wstring digits = digitsOf(number);
    const bool isInName =
        start > 0 && std::wstring_view(L"\\_@").find(text[start - 1]) != std::wstring_view::npos;
    const bool isErrorNumber =
        numbers != Numbers::Short && text.substr(start + number.size()).starts_with(L" (0x");
    const bool isFigure = numbers == Numbers::Free && !isInName;
    const bool isOfProduct = words == Words::OfProduct && isInName && vocabulary_.hasWord(number);
    const bool stays = digits.size() <= kLongestCount || isErrorNumber || isFigure || isOfProduct;
    return stays ? std::wstring(number) : L"#" + hash_.of(digits);
}

std::wstring Masker::masked(std::wstring_view text, Words words, Numbers numbers) {
    std::wstring result;
    for (std::size_t i = 0; i < text.size();) {
        if (!isWordCharacter(text[i])) {
            result += text[i++];
        } else if (const std::wstring_view number = numberAt(text, i); !number.empty()) {
            result += numberFor(text, number, words, numbers);
            i += number.size();
        } else {
            const std::wstring_view word = wordAt(text, i);
            result += wordFor(word, words);
            i += word.size();
        }
    }
    return result;
}

std::wstring Masker::traceLine(std::wstring_view line) {
    if (line.empty()) return {};
    const std::size_t start = behindTime(line);
    const std::wstring_view text = line.substr(start);
    const std::wstring_view own = vocabulary_.beginning(text);
    const std::wstring_view rest = text.substr(own.size());
    const std::wstring head = std::wstring(line.substr(0, start)) + std::wstring(own);
    if (own.find(L"Error") != std::wstring_view::npos || rest.find(L" (0x") != std::wstring_view::npos)
        return head + sentence(rest);
    const std::wstring_view tail = vocabulary_.ending(rest);
    return head + value(rest.substr(0, rest.size() - tail.size())) + std::wstring(tail);
}

std::wstring Masker::errorLine(std::wstring_view line) {
    const std::size_t tab = std::min(line.find(L'\t'), line.size());
    // "24/05/2002 14:03:11"
    constexpr std::size_t kTimeLength = 19;
    const std::size_t start = tab == kTimeLength ? tab : 0;
    return std::wstring(line.substr(0, start)) + sentence(line.substr(start));
}

}  // namespace pimcall::bundle
