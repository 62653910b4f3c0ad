#include "numbers/HomePlace.h"

#include <algorithm>

#include "numbers/PresentedForms.h"
#include "numbers/WindowsPlace.h"
#include "support/Settings.h"

namespace numbers {

namespace {

namespace settings = zelbar::settings;

bool isAllDigits(const std::wstring& text) {
    return std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

std::wstring upperCase(std::wstring word) {
    for (wchar_t& c : word)
        if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - (L'a' - L'A'));
    return word;
}

/// The settings for what the options leave out.
PlaceWords withSettings(PlaceWords words) {
    const auto complete = [](std::wstring& word, const zelbar::Setting& setting) {
        if (word.empty()) word = zelbar::userOrMachineSetting(setting);
    };
    const std::wstring asked = words.country;
    words.country.clear();
    complete(words.country, settings::kCountry);
    // An area code belongs to the country that it was set for.
    if (asked.empty() || upperCase(asked) == upperCase(words.country))
        complete(words.areaCode, settings::kAreaCode);
    if (!asked.empty()) words.country = asked;
    complete(words.outsideLine, settings::kOutsideLine);
    complete(words.withoutPrefix, settings::kNumbersWithoutPrefix);
    return words;
}

std::wstring countryOf(const std::wstring& letters) {
    const std::wstring word = upperCase(letters);
    const bool isCode = word.size() == 2 && callingCodeOf(word) != 0;
    if (!isCode)
        throw BadPlace{L"There is no country \"" + word + L"\". Give its two letters, as in DE for Germany."};
    return word;
}

/// A trunk prefix of "0" cannot begin an area code; others ("8", "1") can.
bool beginsWithTrunk(const std::wstring& areaCode, const std::wstring& country) {
    const std::wstring trunk = trunkPrefixOf(country);
    return !trunk.empty() && trunk.front() == L'0' && areaCode.rfind(trunk, 0) == 0;
}

std::wstring areaCodeOf(const std::wstring& word, const std::wstring& country) {
    constexpr std::size_t kLongest = 6;
    if (word.empty()) return word;
    if (country.empty())
        throw BadPlace{L"The area code " + word +
                       L" says nothing without a country. Give the country as well."};
    if (!isAllDigits(word) || word.size() > kLongest)
        throw BadPlace{L"\"" + word + L"\" is no area code: an area code is up to six digits."};
    if (beginsWithTrunk(word, country))
        throw BadPlace{L"Give the area code without the " + trunkPrefixOf(country) + L" before it: " +
                       word.substr(trunkPrefixOf(country).size()) + L", not " + word + L"."};
    constexpr int kNorthAmerica = 1;
    if (callingCodeOf(country) == kNorthAmerica && (word.size() != 3 || word[0] < L'2'))
        throw BadPlace{L"\"" + word +
                       L"\" is no area code: those of North America have three digits, "
                       L"without a 1 before them."};
    return word;
}

std::wstring outsideLineOf(const std::wstring& word) {
    constexpr std::size_t kLongest = 4;
    if (!isAllDigits(word) || word.size() > kLongest)
        throw BadPlace{L"\"" + word + L"\" is no outside line: it is up to four digits."};
    return word;
}

WithoutPrefix withoutPrefixOf(const std::wstring& word) {
    if (word.empty() || word == L"unknown") return WithoutPrefix::Unknown;
    if (word == L"international") return WithoutPrefix::International;
    if (word == L"national") return WithoutPrefix::National;
    throw BadPlace{L"Numbers without prefix are international, national or unknown, not \"" + word + L"\"."};
}

/// Country and area code as Windows knows them.
HomePlace windowsPlace() {
    HomePlace home;
    const DiallingLocation location = diallingLocation();
    home.place.region = location.callingCode ? regionOf(location.callingCode) : std::wstring();
    if (!home.place.region.empty()) {
        home.source = L"Windows' dialling location";
        const std::wstring& area = location.areaCode;
        const std::wstring trunk = trunkPrefixOf(home.place.region);
        if (isAllDigits(area))
            home.place.areaCode = beginsWithTrunk(area, home.place.region) ? area.substr(trunk.size()) : area;
        return home;
    }
    const std::wstring region = userRegion();
    if (callingCodeOf(region) == 0) return home;
    home.place.region = region;
    home.source = L"Windows' region";
    return home;
}

}  // namespace

std::wstring described(const HomePlace& home) {
    const Place& place = home.place;
    std::wstring text = place.region.empty() ? L"Place: not known; only what is sure everywhere is written"
                                             : L"Place: " + place.region;
    if (!place.areaCode.empty()) text += L", area code " + place.areaCode;
    if (!home.source.empty()) text += L" (from " + home.source + L")";
    if (!place.outsideLine.empty()) text += L", outside line " + place.outsideLine;
    if (place.withoutPrefix == WithoutPrefix::International)
        text += L", numbers without prefix are international";
    if (place.withoutPrefix == WithoutPrefix::National) text += L", numbers without prefix are national";
    return text;
}

HomePlace findHomePlace(const PlaceWords& options) {
    const PlaceWords words = withSettings(options);
    HomePlace home;
    if (words.country.empty()) {
        home = windowsPlace();
    } else {
        home.place.region = countryOf(words.country);
        home.source = options.country.empty() ? L"the settings" : L"the options";
    }
    if (!words.areaCode.empty()) home.place.areaCode = areaCodeOf(words.areaCode, home.place.region);
    home.place.outsideLine = outsideLineOf(words.outsideLine);
    home.place.withoutPrefix = withoutPrefixOf(words.withoutPrefix);
    if (home.place.withoutPrefix == WithoutPrefix::National && home.place.region.empty())
        throw BadPlace{L"National numbers say nothing without a country. Give the country as well."};
    return home;
}

}  // namespace numbers
