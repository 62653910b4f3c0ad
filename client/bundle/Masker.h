#pragma once

#include <string>
#include <string_view>

#include "client/bundle/KeyedHash.h"
#include "client/bundle/Vocabulary.h"

namespace pimcall::bundle {

/// Takes out of a text whatever could tell somebody: each word that is not the product's own becomes "~" and
/// its stand-in, each number "#" and one. Words are compared without case and numbers by their digits, so
/// that what belongs together stays together.
class Masker {
  public:
    explicit Masker(Vocabulary vocabulary) : vocabulary_(std::move(vocabulary)) {}

    /// A sentence of ours or of Windows with values in it: the product's words stay, and so do error numbers.
    std::wstring sentence(std::wstring_view text) {
        return masked(text, Words::OfProduct, Numbers::OfErrors);
    }
    /// A sentence of the doctor's: its figures are counts and versions, and stay.
    std::wstring report(std::wstring_view text) { return masked(text, Words::OfProduct, Numbers::Free); }
    /// Somebody's name, number, identifier: nothing stays but one or two digits.
    std::wstring value(std::wstring_view text) { return masked(text, Words::None, Numbers::Short); }
    /// A line of the trace: time, words of the driver's, value, words of the driver's.
    std::wstring traceLine(std::wstring_view line);
    /// A line of the error file: the time, and what stands behind it.
    std::wstring errorLine(std::wstring_view line);

  private:
    enum class Words { None, OfProduct };
    enum class Numbers { Short, OfErrors, Free };

    std::wstring masked(std::wstring_view text, Words words, Numbers numbers);
    std::wstring wordFor(std::wstring_view word, Words words);
    std::wstring numberFor(std::wstring_view text, std::wstring_view number, Words words, Numbers numbers);

    Vocabulary vocabulary_;
    KeyedHash hash_;
};

}  // namespace pimcall::bundle
