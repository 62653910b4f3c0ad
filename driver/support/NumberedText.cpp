#include "support/NumberedText.h"

namespace zelbar {
namespace {

constexpr std::size_t kDigits = 5;

/// The five digits at the start of a text as a number.
template <class Text>
std::optional<int> numberAtStart(Text text) {
    if (text.size() < kDigits) return std::nullopt;
    int number = 0;
    for (std::size_t i = 0; i < kDigits; ++i) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
        number = number * 10 + static_cast<int>(text[i] - '0');
    }
    return number;
}

}  // namespace

std::optional<NumberedText> splitNumberedText(std::wstring_view text) {
    constexpr std::size_t kPrefix = kDigits + 2;
    if (text.size() < kPrefix || text.front() != L'#' || text[kPrefix - 1] != L'#') return std::nullopt;
    const auto number = numberAtStart(text.substr(1));
    if (!number) return std::nullopt;
    return NumberedText{*number, text.substr(kPrefix)};
}

TextFile parseTextFile(std::string_view utf8) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (utf8.starts_with(kByteOrderMark)) utf8.remove_prefix(kByteOrderMark.size());
    TextFile texts;
    while (!utf8.empty()) {
        const auto end = utf8.find('\n');
        std::string_view line = utf8.substr(0, end);
        utf8.remove_prefix(end == std::string_view::npos ? utf8.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        const auto number = numberAtStart(line);
        // A text that is still to be translated is no text: the default then shows.
        if (!number || line.size() < kDigits + 2 || line[kDigits] != '=') continue;
        texts[*number] = line.substr(kDigits + 1);
    }
    return texts;
}

}  // namespace zelbar
