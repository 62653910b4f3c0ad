#include <gtest/gtest.h>

#include "numbers/HomePlace.h"
#include "tests/harness/RegistrySandbox.h"

namespace numbers {
namespace {

constexpr wchar_t kPopup[] = L"Software\\Norvane\\7316\\Popup";
constexpr wchar_t kTelephony[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Telephony\\";

class HomePlaceTest : public testing::Test {
  protected:
    std::wstring said(const PlaceWords& options) {
        try {
            return described(findHomePlace(options));
        } catch (const BadPlace& bad) {
            return L"Bad: " + bad.sentence;
        }
    }
    void setNumber(const std::wstring& key, const wchar_t* name, char value) {
        registry_.set(HKEY_LOCAL_MACHINE, kTelephony + key, name, REG_DWORD, std::string{value, 0, 0, 0});
    }
    harness::RegistrySandbox registry_;
};

TEST_F(HomePlaceTest, IsWhatTheOptionsSayElseTheSettingsElseWindows) {
    const std::wstring region = said({});
    EXPECT_NE(region.find(L"(from Windows' region)"), std::wstring::npos) << region.c_str();
    setNumber(L"Locations", L"CurrentID", 3);
    setNumber(L"Locations\\Location3", L"Country", 107);
    registry_.set(HKEY_LOCAL_MACHINE, std::wstring(kTelephony) + L"Locations\\Location3", L"AreaCode",
                  L"089");
    setNumber(L"Country List\\107", L"CountryCode", 49);
    EXPECT_EQ(said({}), L"Place: DE, area code 89 (from Windows' dialling location)");
    registry_.set(HKEY_LOCAL_MACHINE, kPopup, L"Country", L" at ");
    registry_.set(HKEY_LOCAL_MACHINE, kPopup, L"AreaCode", L"1");
    EXPECT_EQ(said({}), L"Place: AT, area code 1 (from the settings)");
    registry_.set(HKEY_CURRENT_USER, kPopup, L"AreaCode", L"316");
    EXPECT_EQ(said({L"", L"", L"0", L"international"}),
              L"Place: AT, area code 316 (from the settings), outside line 0, numbers without prefix are "
              L"international");
    EXPECT_EQ(said({L"de", L"", L"", L""}), L"Place: DE (from the options)") << "Austria's area code";
    EXPECT_EQ(said({L"AT", L"", L"", L""}), L"Place: AT, area code 316 (from the options)");
}

TEST_F(HomePlaceTest, ThatIsNoneIsToldInASentence) {
    const std::pair<PlaceWords, const wchar_t*> cases[] = {
        {{L"XX", L"", L"", L""}, L"no country"},       {{L"Germany", L"", L"", L""}, L"no country"},
        {{L"49", L"", L"", L""}, L"no country"},       {{L"DE", L"089", L"", L""}, L"89, not 089"},
        {{L"DE", L"8x", L"", L""}, L"no area code"},   {{L"DE", L"8912345", L"", L""}, L"no area code"},
        {{L"US", L"1212", L"", L""}, L"three digits"}, {{L"HU", L"061", L"", L""}, L"1, not 061"},
        {{L"DE", L"89", L"a", L""}, L"outside line"},  {{L"DE", L"89", L"", L"both"}, L"without prefix"},
    };
    for (const auto& [options, part] : cases) {
        const std::wstring sentence = said(options);
        EXPECT_EQ(sentence.find(L"Bad: "), 0u) << part;
        EXPECT_NE(sentence.find(part), std::wstring::npos) << sentence.c_str();
    }
    EXPECT_EQ(said({L"IT", L"06", L"", L""}), L"Place: IT, area code 06 (from the options)");
}

}  // namespace
}  // namespace numbers
