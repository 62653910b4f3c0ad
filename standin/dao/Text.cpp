#include "standin/dao/Text.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>

namespace standin::dao {
namespace {

constexpr LCID kGeneralSortOrder = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
constexpr std::size_t kUnits = 0x10000;
constexpr wchar_t kPlainEnd = 0x80;

using FoldTable = std::array<wchar_t, kUnits>;

FoldTable makeFoldTable() {
    FoldTable table{};
    for (std::size_t unit = 0; unit < kUnits; ++unit) {
        const auto plain = static_cast<wchar_t>(unit);
        table[unit] = plain;
        LCMapStringW(kGeneralSortOrder, LCMAP_LOWERCASE, &plain, 1, &table[unit], 1);
    }
    return table;
}

/// Units whose place in the language's order does not depend on what stands beside them.
bool isPlain(wchar_t unit) {
    return unit == L' ' || (unit >= L'0' && unit <= L'9') || (unit >= L'a' && unit <= L'z');
}

/// The language's order where the first difference decides it: blanks come before digits, digits before
/// letters. Nothing where more has to be looked at.
std::optional<int> plainOrder(std::wstring_view left, std::wstring_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const wchar_t a = foldCase(left[i]);
        const wchar_t b = foldCase(right[i]);
        if (a == b && a < kPlainEnd) continue;
        return isPlain(a) && isPlain(b) ? std::optional(a < b ? -1 : 1) : std::nullopt;
    }
    if (left.size() == right.size()) return 0;
    const wchar_t next = foldCase((left.size() < right.size() ? right : left)[common]);
    return isPlain(next) ? std::optional(left.size() < right.size() ? -1 : 1) : std::nullopt;
}

}  // namespace

wchar_t foldCase(wchar_t unit) {
    static const FoldTable table = makeFoldTable();
    return table[unit];
}

std::wstring foldCase(std::wstring_view text) {
    std::wstring folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), [](wchar_t unit) { return foldCase(unit); });
    return folded;
}

bool sameText(std::wstring_view left, std::wstring_view right) {
    return compareFolded(left, right) == 0;
}

int compareSorted(std::wstring_view left, std::wstring_view right) {
    if (const auto plain = plainOrder(left, right)) return *plain;
    const int order =
        CompareStringW(kGeneralSortOrder, NORM_IGNORECASE, left.data(), static_cast<int>(left.size()),
                       right.data(), static_cast<int>(right.size()));
    return order == 0 ? compareFolded(left, right) : order - CSTR_EQUAL;
}

int compareFolded(std::wstring_view left, std::wstring_view right) {
    const std::size_t common = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < common; ++i) {
        const wchar_t a = foldCase(left[i]);
        const wchar_t b = foldCase(right[i]);
        if (a != b) return a < b ? -1 : 1;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

std::wstring endOfPrefix(std::wstring_view prefix) {
    std::wstring end = foldCase(prefix);
    while (!end.empty()) {
        // The next unit must be its own lower case, or folding it would move it elsewhere in the order.
        for (std::size_t unit = end.back() + 1U; unit < kUnits; ++unit) {
            if (foldCase(static_cast<wchar_t>(unit)) == unit) {
                end.back() = static_cast<wchar_t>(unit);
                return end;
            }
        }
        end.pop_back();
    }
    return end;
}

}  // namespace standin::dao
