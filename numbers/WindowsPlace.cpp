#include "numbers/WindowsPlace.h"

#include <windows.h>

#include <optional>

#include "support/Registry.h"
#include "support/Text.h"

namespace numbers {

namespace {

constexpr wchar_t kTelephony[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Telephony\\";

/// A 32-bit program may see the key in either view.
constexpr REGSAM kViews[] = {KEY_WOW64_64KEY, KEY_WOW64_32KEY};

std::optional<DWORD> number(const std::wstring& path, const wchar_t* name, REGSAM view) {
    const auto key = zelbar::RegistryKey::open(HKEY_LOCAL_MACHINE, kTelephony + path, KEY_READ | view);
    DWORD value = 0;
    DWORD size = sizeof value;
    if (!key || RegGetValueW(key.get(), nullptr, name, RRF_RT_REG_DWORD, nullptr, &value, &size)) return {};
    return value;
}

std::wstring text(const std::wstring& path, const wchar_t* name, REGSAM view) {
    const auto key = zelbar::RegistryKey::open(HKEY_LOCAL_MACHINE, kTelephony + path, KEY_READ | view);
    return key ? key.characters(name).value_or(L"") : L"";
}

std::optional<DiallingLocation> locationIn(REGSAM view) {
    const auto current = number(L"Locations", L"CurrentID", view);
    if (!current) return {};
    const std::wstring location = L"Locations\\Location" + std::to_wstring(*current);
    // A country's number in this list is not its calling code: Canada has 107.
    const auto country = number(location, L"Country", view);
    if (!country) return {};
    const auto code = number(L"Country List\\" + std::to_wstring(*country), L"CountryCode", view);
    return DiallingLocation{static_cast<int>(code.value_or(*country)),
                            std::wstring(zelbar::untilNul(text(location, L"AreaCode", view)))};
}

}  // namespace

DiallingLocation diallingLocation() {
    for (const REGSAM view : kViews)
        if (const auto location = locationIn(view)) return *location;
    return {};
}

std::wstring userRegion() {
    wchar_t country[8] = {};
    const GEOID region = GetUserGeoID(GEOCLASS_NATION);
    if (region != GEOID_NOT_AVAILABLE && GetGeoInfoW(region, GEO_ISO2, country, 8, 0) == 3) return country;
    if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SISO3166CTRYNAME, country, 8) == 3) return country;
    return {};
}

}  // namespace numbers
