#include "numbers/PresentedOtherwise.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "numbers/PresentedForms.h"

namespace numbers {

namespace {

constexpr std::size_t kFewestDigits = 7;

bool isNumber(const std::wstring& text) {
    const std::size_t start = text.starts_with(L'+') ? 1 : 0;
    return text.size() >= kFewestDigits &&
           std::all_of(text.begin() + static_cast<std::ptrdiff_t>(start), text.end(),
                       [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

/// Whether a system at the place presents some number like this.
bool presents(const Place& place, const std::wstring& number) {
    std::wstring behindOutsideLine = number;
    if (number.starts_with(place.outsideLine)) behindOutsideLine.erase(0, place.outsideLine.size());
    const PresentedForms presented(place);
    for (const std::wstring& digits :
         {behindOutsideLine, trunkPrefixOf(place.region) + behindOutsideLine, L"+" + behindOutsideLine}) {
        // The text as it stands comes first and is no presented form.
        const std::vector<std::wstring> forms = presented.of(L" " + digits);
        if (std::find(forms.begin() + 1, forms.end(), number) != forms.end()) return true;
    }
    return false;
}

}  // namespace

std::wstring presentedOtherwise(const Place& place, const std::wstring& number) {
    if (place.region.empty() || !isNumber(number) || presents(place, number)) return {};
    std::vector<std::pair<Place, std::wstring>> others;
    const auto add = [&](auto member, auto value, const wchar_t* what) {
        if (place.*member == value) return;
        others.emplace_back(place, what).first.*member = value;
    };
    add(&Place::withoutPrefix, WithoutPrefix::International,
        L"international numbers without prefix (NumbersWithoutPrefix: international)");
    add(&Place::withoutPrefix, WithoutPrefix::National,
        L"national numbers without prefix (NumbersWithoutPrefix: national)");
    add(&Place::outsideLine, std::wstring(), L"numbers without the digits for an outside line (OutsideLine)");
    if (place.outsideLine.empty())
        add(&Place::outsideLine, number.substr(0, 1),
            L"numbers with the digit for an outside line before them (OutsideLine)");
    for (const auto& [other, what] : others)
        if (presents(other, number))
            return L"This number looks as if the telephone system presented " + what +
                   L"; the settings say otherwise.";
    return {};
}

}  // namespace numbers
