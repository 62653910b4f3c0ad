#include "filler/Arguments.h"

#include <string_view>

#include "support/Similar.h"

namespace filler {
namespace {

/// Where the value of an option goes; null for one that there is not.
std::wstring* valueOf(std::wstring_view option, numbers::PlaceWords& place, std::wstring& way) {
    if (option == L"--read") return &way;
    if (option == L"--country") return &place.country;
    if (option == L"--area") return &place.areaCode;
    if (option == L"--outside-line") return &place.outsideLine;
    return option == L"--without-prefix" ? &place.withoutPrefix : nullptr;
}

std::optional<ReadWay> wayNamed(const std::wstring& word) {
    if (word == L"table") return ReadWay::Table;
    if (word == L"items") return ReadWay::Items;
    return {};
}

std::wstring unknown(std::wstring_view option) {
    constexpr std::wstring_view kKnown[] = {L"--country", L"--area",  L"--outside-line", L"--without-prefix",
                                            L"--read",    L"--quiet", L"--help"};
    const std::wstring_view similar = zelbar::similarWord(option, kKnown);
    return L"unknown argument " + std::wstring(option) +
           (similar.empty() ? L"" : L"; did you mean " + std::wstring(similar) + L"?");
}

}  // namespace

Arguments parseArguments(int count, wchar_t** words) {
    Arguments result;
    std::wstring way;
    for (int i = 1; i < count; ++i) {
        const std::wstring_view word = words[i];
        if (word == L"--help" || word == L"-h" || word == L"/?") {
            result.wantsHelp = true;
            return result;
        }
        if (word == L"--quiet" || word == L"-q") {
            result.isQuiet = true;
            continue;
        }
        const std::size_t equals = word.find(L'=');
        const std::wstring option(word.substr(0, equals));
        std::wstring* value = valueOf(option, result.place, way);
        if (!value) throw WrongUsage{unknown(option)};
        if (!value->empty()) throw WrongUsage{option + L" is given more than once"};
        const bool isAttached = equals != std::wstring_view::npos;
        if (isAttached)
            *value = word.substr(equals + 1);
        else if (i + 1 < count && !std::wstring_view(words[i + 1]).starts_with(L"-"))
            *value = words[++i];
        if (value->empty()) throw WrongUsage{option + L" needs a value"};
    }
    result.way = wayNamed(way);
    if (!way.empty() && !result.way) throw WrongUsage{L"--read is table or items, not " + way};
    return result;
}

}  // namespace filler
