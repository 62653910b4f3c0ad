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
        {L"abc", L"abc ", false},
        {L"#", L"\x0667", false},
        {L"##", L"09", true},
        {L"[*][?][[]", L"*?[", true},
        {L"a]b", L"a]b", true},
        {L"[abc]", L"B", true},
        {L"[!abc]", L"d", true},
        {L"[!abc]", L"A", false},
        {L"[!]", L"!", true},
        {L"[a-c]x", L"Bx", true},
        {L"[A-E]", L"\x00CA", false},
        {L"[A-F]", L"\x00CA", true},
        {L"_", L"x", false},
        {L"M\x00DCLLER", L"m\x00FCller", true},
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
    for (const wchar_t* pattern : {L"[", L"a[bc", L"[!", L"[z-a]"})
        EXPECT_THROW(LikePattern{pattern}, DaoError) << pattern;
}

}  // namespace
}  // namespace standin::dao
