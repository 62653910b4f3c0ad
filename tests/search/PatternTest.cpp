#include <gtest/gtest.h>

#include "search/LikePattern.h"

namespace zelbar {

TEST(Pattern, EscapesWhatWouldBeAWildcardExceptTheAsterisk) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"", L""}, {L"#31#0123*", L"[#]31[#]0123*"}, {L"a?b", L"a[?]b"}, {L"[x]!-|%_", L"[[]x]!-|%_"}};
    for (const auto& [text, pattern] : cases) EXPECT_EQ(EscapeLikePattern(text), pattern);
    EXPECT_EQ(quotedLiteral(L"O\"Brien|x"), L"\"O\"\"Brien\" & Chr(124) & \"x\"");
}

}  // namespace zelbar
