#pragma once

#include <string>
#include <string_view>
#include <vector>

// What people type into the field for a telephone number. Needs no Windows, compiles natively.

namespace numbers {

/// The telephone numbers in a field, each as "+" (where it was written) and digits: several in one field,
/// words before and after, extensions, signs from pasted texts. What is no number, and what has fewer than
/// six digits, gives nothing; where it cannot be told where one number ends, neither.
std::vector<std::string> numbersIn(std::wstring_view field);

/// The digits of a number that is written with letters ("1-800-FLOWERS"), as it is dialled in North America;
/// empty when the field is none. With "+" where it was written.
std::string vanityNumber(std::wstring_view field);

}  // namespace numbers
