#pragma once

#include <string>

namespace standin::dao {

/// A failure with the number and the text that DAO gives for it. The object that lets it out adds its class
/// name as the source.
struct DaoError {
    int number;
    std::wstring text;
};

/// Throws the DaoError of that number; `first` and `second` fill the places of its text.
[[noreturn]] void raise(int number, const std::wstring& first = {}, const std::wstring& second = {});

}  // namespace standin::dao
