#pragma once

#include <set>
#include <string>
#include <string_view>

namespace pimcall::bundle {

/// The product's own words: what may stand in a bundle as it is. They are taken from the texts in the
/// programs' files, so that nobody has to keep a list.
class Vocabulary {
  public:
    /// Adds the texts that a program file holds; nothing when it cannot be read.
    void learnFrom(const std::wstring& file);
    void learn(std::wstring_view text);
    /// Takes a text's words out again: they name somebody here.
    void forget(std::wstring_view text);

    bool hasWord(std::wstring_view word) const;
    /// The longest whole text of a program with which this one begins, or ends; empty for none.
    std::wstring_view beginning(std::wstring_view text) const;
    std::wstring_view ending(std::wstring_view text) const;

  private:
    std::set<std::wstring, std::less<>> texts_;
    std::set<std::wstring, std::less<>> words_;
};

/// A character of which words are made: letters of every script, and digits.
bool isWordCharacter(wchar_t c);

/// Without differences of upper and lower case.
std::wstring caseFolded(std::wstring_view text);

}  // namespace pimcall::bundle
