#include <gtest/gtest.h>

#include "search/LikePattern.h"

namespace zelbar {

TEST(Pattern, EscapesWhatWouldBeAWildcardExceptTheAsterisk) {
    const struct {
        const wchar_t* text;
        const wchar_t* pattern;
    } cases[] = {
        {L"", L""},         {L"0123*", L"0123*"}, {L"#31#0123", L"[#]31[#]0123"},
        {L"a?b", L"a[?]b"}, {L"[x]", L"[[]x]"},   {L"]!-|%_", L"]!-|%_"},
    };
    for (const auto& c : cases) EXPECT_EQ(EscapeLikePattern(c.text), c.pattern) << c.text;
}

TEST(Pattern, LiteralsDoubleTheirQuotes) {
    EXPECT_EQ(quotedLiteral(L"O\"Brien"), L"\"O\"\"Brien\"");
}

}  // namespace zelbar
