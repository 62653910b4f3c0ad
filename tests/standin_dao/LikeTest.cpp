#include <gtest/gtest.h>

#include "standin/dao/DaoError.h"
#include "standin/dao/Like.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

TEST(Like, MatchesAsJetDoes) {
    struct Case {
        const wchar_t* pattern;
        const wchar_t* text;
        bool matches;
    };
    constexpr Case kCases[] = {
        {L"", L"", true},
        {L"", L"a", false},
        {L"*", L"", true},
        {L"*", L"abc", true},
        {L"abc", L"ABC", true},
        {L"abc", L"abc ", false},
        {L"abc", L"abcd", false},
        {L"a*", L"A", true},
        {L"a*", L"ba", false},
        {L"*a", L"bA", true},
        {L"*b*", L"abc", true},
        {L"a*b*c", L"axbybzc", true},
        {L"a*b*c", L"axbybz", false},
        {L"*ab", L"aab", true},
        {L"a**b", L"ab", true},
        {L"?", L"", false},
        {L"?", L"x", true},
        {L"a?c", L"abc", true},
        {L"a?c", L"ac", false},
        {L"#", L"7", true},
        {L"#", L"x", false},
        {L"#", L"\x0667", false},
        {L"+49#*", L"+4989", true},
        {L"[#]", L"#", true},
        {L"[#]", L"1", false},
        {L"[*][?][[]", L"*?[", true},
        {L"a]b", L"a]b", true},
        {L"a!-b", L"a!-b", true},
        {L"[abc]", L"B", true},
        {L"[abc]", L"d", false},
        {L"[!abc]", L"d", true},
        {L"[!abc]", L"A", false},
        {L"[!abc]", L"", false},
        {L"[!]", L"!", true},
        {L"[a-c]x", L"Bx", true},
        {L"[a-c]", L"d", false},
        {L"[0-9][0-9]", L"42", true},
        {L"[a-c-]", L"-", true},
        {L"[A-E]", L"\x00CA", false},
        {L"[A-F]", L"\x00CA", true},
        {L"a[]b", L"ab", true},
        {L"%", L"x", false},
        {L"_", L"x", false},
        {L"muller", L"m\x00FCller", false},
        {L"M\x00DCLLER", L"m\x00FCller", true},
        {L"m?ller", L"m\x00FCller", true},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(LikePattern(c.pattern).matches(c.text), c.matches) << c.pattern << " | " << c.text;
    }
}

/// Like by its definition, without any cleverness, for patterns of plain characters, *, ? and #.
bool likeByDefinition(std::wstring_view pattern, std::wstring_view text) {
    if (pattern.empty()) return text.empty();
    const std::wstring_view rest = pattern.substr(1);
    if (pattern.front() == L'*') {
        for (std::size_t skipped = 0; skipped <= text.size(); ++skipped) {
            if (likeByDefinition(rest, text.substr(skipped))) return true;
        }
        return false;
    }
    if (text.empty()) return false;
    const wchar_t first = text.front();
    const bool fits = pattern.front() == L'?' ||
                      (pattern.front() == L'#' && first >= L'0' && first <= L'9') ||
                      foldCase(pattern.front()) == foldCase(first);
    return fits && likeByDefinition(rest, text.substr(1));
}

TEST(Like, AgreesWithItsDefinitionOnEveryShortPatternAndText) {
    const auto nth = [](std::wstring_view alphabet, std::size_t number, std::size_t length) {
        std::wstring text;
        for (std::size_t i = 0; i < length; ++i, number /= alphabet.size())
            text += alphabet[number % alphabet.size()];
        return text;
    };
    constexpr std::wstring_view kPatternUnits = L"*?#aB";
    constexpr std::wstring_view kTextUnits = L"aAb1";
    int matched = 0;
    for (std::size_t pattern = 0; pattern < 3125; ++pattern) {
        const std::wstring patternText = nth(kPatternUnits, pattern, 1 + pattern % 5);
        const LikePattern like(patternText);
        for (std::size_t text = 0; text < 256; ++text) {
            const std::wstring candidate = nth(kTextUnits, text, text % 5);
            const bool expected = likeByDefinition(patternText, candidate);
            ASSERT_EQ(like.matches(candidate), expected) << patternText << " | " << candidate;
            matched += expected ? 1 : 0;
        }
    }
    EXPECT_GT(matched, 10000) << "the comparison must have met both answers";
}

TEST(Like, RefusesBrokenLists) {
    for (const wchar_t* pattern : {L"[", L"a[bc", L"[!", L"[z-a]"}) {
        EXPECT_THROW(LikePattern{pattern}, DaoError) << pattern;
    }
}

TEST(Like, TellsWhatEveryMatchBeginsWith) {
    EXPECT_EQ(LikePattern(L"AB*c").prefix(), L"ab");
    EXPECT_EQ(LikePattern(L"[#]1?").prefix(), L"#1");
    EXPECT_EQ(LikePattern(L"*").prefix(), L"");
    EXPECT_TRUE(LikePattern(L"[*]1").isExact());
    EXPECT_FALSE(LikePattern(L"1*").isExact());
}

TEST(Text, PrefixRangeHoldsExactlyTheTextsThatBeginSo) {
    const std::wstring prefixes[] = {L"a", L"Z", L"@", L"\x0177", L"09", L"\x00E9", L"a\xFFFF", L"\xFFFF"};
    for (const std::wstring& prefix : prefixes) {
        const std::wstring end = endOfPrefix(prefix);
        for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
            std::wstring text = prefix;
            text.back() = static_cast<wchar_t>(unit);
            const bool inRange =
                compareFolded(text, prefix) >= 0 && (end.empty() || compareFolded(text, end) < 0);
            const bool begins = foldCase(text.back()) == foldCase(prefix.back());
            if (begins) {
                ASSERT_TRUE(inRange) << unit;
            }
            text += L"tail";
            ASSERT_EQ(compareFolded(text, prefix) >= 0 && (end.empty() || compareFolded(text, end) < 0),
                      inRange || begins)
                << unit;
        }
    }
}

TEST(Text, SortsByLanguageWithoutCase) {
    EXPECT_EQ(compareSorted(L"Emil", L"eMIL"), 0);
    EXPECT_LT(compareSorted(L"e", L"\x00E9"), 0);
    EXPECT_LT(compareSorted(L"\x00E4", L"Zed"), 0);
    EXPECT_LT(compareSorted(L"", L"a"), 0);
}

}  // namespace
}  // namespace standin::dao
