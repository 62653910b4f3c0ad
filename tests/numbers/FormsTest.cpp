#include <gtest/gtest.h>
#include <phonenumbers/phonenumberutil.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>

#include "numbers/PresentedForms.h"
#include "numbers/PresentedOtherwise.h"
#include "tests/numbers/Spellings.h"

namespace numbers {
namespace {

using Texts = std::vector<std::wstring>;

bool holds(const Texts& forms, const std::wstring& text) {
    return std::find(forms.begin(), forms.end(), text) != forms.end();
}

TEST(Forms, OfEverySpellingAreThoseThatArePresentedForIt) {
    std::map<std::wstring, std::unique_ptr<PresentedForms>> places;
    std::set<std::wstring> countries;
    std::size_t hits = 0, misses = 0;
    for (const spellings::Case& one : spellings::all()) {
        SCOPED_TRACE(testing::Message() << one.home.c_str() << ": " << one.stored.c_str());
        auto& presented = places[one.home];
        if (!presented) presented = std::make_unique<PresentedForms>(one.place);
        const Texts forms = presented->of(one.stored);
        ASSERT_FALSE(forms.empty());
        EXPECT_EQ(forms[0], one.stored);
        for (const std::wstring& hit : one.hits) EXPECT_TRUE(holds(forms, hit)) << hit.c_str();
        for (const std::wstring& miss : one.misses) EXPECT_FALSE(holds(forms, miss)) << miss.c_str();
        countries.insert(one.place.region);
        hits += one.hits.size();
        misses += one.misses.size();
    }
    EXPECT_GE(countries.size(), 30u);
    EXPECT_GE(hits, 300u);
    EXPECT_GE(misses, hits);
}

/// A valid number of each country, made of the library's own patterns: digits are tried until one is valid.
std::wstring exampleOf(const std::string& region) {
    const auto& util = *i18n::phonenumbers::PhoneNumberUtil::GetInstance();
    const std::string code = "+" + std::to_string(util.GetCountryCodeForRegion(region));
    for (const std::size_t length : {9u, 8u, 10u, 7u, 6u, 5u, 11u}) {
        for (int start = 99; start >= 10; --start) {
            std::string digits = std::to_string(start) + "234567891";
            digits.resize(length);
            i18n::phonenumbers::PhoneNumber number;
            const std::string whole = code + digits;
            if (util.Parse(whole, region, &number) == util.NO_PARSING_ERROR &&
                util.IsValidNumberForRegion(number, region)) {
                std::string text;
                util.Format(number, util.E164, &text);
                return {text.begin(), text.end()};
            }
        }
    }
    return {};
}

TEST(Forms, OfEveryCountryAtHomeLeadBackToTheSameNumber) {
    const auto& util = *i18n::phonenumbers::PhoneNumberUtil::GetInstance();
    std::set<std::string> regions;
    util.GetSupportedRegions(&regions);
    std::size_t tried = 0;
    for (const std::string& region : regions) {
        const std::wstring number = exampleOf(region);
        if (number.empty()) continue;
        SCOPED_TRACE(region);
        ++tried;
        Place home;
        home.region.assign(region.begin(), region.end());
        const PresentedForms presented(home);
        const Texts forms = presented.of(L"Tel. " + number);
        ASSERT_GE(forms.size(), 2u);
        EXPECT_TRUE(holds(forms, number)) << number.c_str();
        // Whatever form is stored instead, the number behind it is the same one, or none.
        for (const std::wstring& form : forms) {
            const Texts again = presented.of(form);
            EXPECT_TRUE(again.size() == 1 || holds(again, number)) << form.c_str();
        }
    }
    EXPECT_GE(tried, 220u);
}

TEST(Forms, OfWhatIsNoNumberAreTheTextAlone) {
    const PresentedForms presented({L"DE", L"89", L"", WithoutPrefix::Unknown});
    for (const std::wstring& text :
         {std::wstring(40000, L'7'), std::wstring(200, L'/'), std::wstring(40, L'1'), std::wstring(L"+"),
          std::wstring(L"\x01\x02"), std::wstring(100, L'('), std::wstring(L"\xDC00\xD83D"),
          std::wstring(250, L' ') + L"030 123456"})
        EXPECT_EQ(presented.of(text), Texts{text});
    EXPECT_EQ(presented.of(L""), Texts{});
}

TEST(Forms, TellWhenASystemPresentsOtherwise) {
    const Place munich{L"DE", L"89", L"", WithoutPrefix::Unknown};
    const Place national{L"FR", L"", L"", WithoutPrefix::National};
    const Place outside{L"DE", L"89", L"9", WithoutPrefix::Unknown};
    const std::tuple<Place, const wchar_t*, const wchar_t*> cases[] = {
        {munich, L"+4930123456", L""},
        {munich, L"004930123456", L""},
        {munich, L"030123456", L""},
        {munich, L"431234567", L"international"},
        {munich, L"000431234567", L"outside line"},
        {national, L"4989123456", L"international"},
        {outside, L"030123456", L"OutsideLine"},
        {munich, L"123", L""},
        {munich, L"0301234*", L""},
        {Place{}, L"431234567", L""},
    };
    for (const auto& [place, number, remark] : cases) {
        const std::wstring said = presentedOtherwise(place, number);
        EXPECT_EQ(said.empty(), std::wstring(remark).empty()) << number << " " << said.c_str();
        EXPECT_NE(said.find(remark), std::wstring::npos) << number << " " << said.c_str();
    }
}

}  // namespace
}  // namespace numbers
