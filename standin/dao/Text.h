#pragma once

#include <string>
#include <string_view>

/// How texts compare in a Jet database of the sort order "General".
namespace standin::dao {

/// The lower-case form of one UTF-16 unit; accents stay.
wchar_t foldCase(wchar_t unit);
std::wstring foldCase(std::wstring_view text);
bool sameText(std::wstring_view left, std::wstring_view right);

/// Sort order: language rules, without regard to case. Negative, zero or positive.
int compareSorted(std::wstring_view left, std::wstring_view right);

/// Order by folded UTF-16 units: no language rules, but all texts that begin alike lie side by side, which is
/// what a search by prefix needs.
int compareFolded(std::wstring_view left, std::wstring_view right);

/// The smallest text above every text that begins with `prefix` in the order of compareFolded; empty when
/// there is none.
std::wstring endOfPrefix(std::wstring_view prefix);

}  // namespace standin::dao
