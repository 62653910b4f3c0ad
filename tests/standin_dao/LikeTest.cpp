#include <gtest/gtest.h>

#include <tuple>

#include "standin/dao/DaoError.h"
#include "standin/dao/Like.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

TEST(Like, MatchesAsJetDoes) {
    constexpr std::tuple<const wchar_t*, const wchar_t*, bool> kCases[] = {
        {L"", L"a", false},          {L"abc", L"abc ", false},     {L"#", L"\x0667", false},
        {L"##", L"09", true},        {L"[*][?][[]", L"*?[", true}, {L"a]b", L"a]b", true},
        {L"[abc]", L"B", true},      {L"[!abc]", L"d", true},      {L"[!abc]", L"A", false},
        {L"[!]", L"!", true},        {L"[a-c]x", L"Bx", true},     {L"[A-E]", L"\x00CA", false},
        {L"[A-F]", L"\x00CA", true}, {L"_", L"x", false},          {L"M\x00DCLLER", L"m\x00FCller", true},
    };
    for (const auto& [pattern, text, matches] : kCases)
        EXPECT_EQ(LikePattern(pattern).matches(text), matches) << pattern << " | " << text;
    for (const wchar_t* pattern : {L"[", L"a[bc", L"[!", L"[z-a]"})
        EXPECT_THROW(LikePattern{pattern}, DaoError) << pattern;
}

}  // namespace
}  // namespace standin::dao
