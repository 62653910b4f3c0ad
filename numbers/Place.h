#pragma once

#include <string>

namespace numbers {

/// What the user's telephone system means by a number that begins neither with "+" nor with a prefix.
enum class WithoutPrefix {
    Unknown,        ///< Not known: such a form is written only where it can mean one number alone.
    International,  ///< Country code and number.
    National,       ///< Area code and number, without the trunk prefix.
};

/// Where the user's telephone stands, and how its system presents numbers.
struct Place {
    std::wstring region;       ///< Country, two letters: "DE". Empty when it is not known.
    std::wstring areaCode;     ///< Without trunk prefix: "89". Empty when it is not known.
    std::wstring outsideLine;  ///< Digits that the system puts before numbers from outside; mostly none.
    WithoutPrefix withoutPrefix = WithoutPrefix::Unknown;
};

}  // namespace numbers
