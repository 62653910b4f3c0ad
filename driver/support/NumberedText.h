#pragma once

// Numbered texts ("#07101#Contacts folders :") and the files that translate them; needs no Windows,
// compiles natively.

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zelbar {

struct NumberedText {
    int number = 0;
    std::wstring_view defaultText;  ///< Behind the second "#"; may be empty. Part of the text taken apart.
};

/// Takes "#", five digits, "#", default text apart; nothing for any other text.
std::optional<NumberedText> splitNumberedText(std::wstring_view text);

/// Texts in UTF-8 by their number.
using TextFile = std::map<int, std::string>;

/// Reads lines "05000=text" in UTF-8. Empty lines and lines that begin with ";" are skipped, as is everything
/// that is no such line; the last of two lines with one number counts.
TextFile parseTextFile(std::string_view utf8);

}  // namespace zelbar
