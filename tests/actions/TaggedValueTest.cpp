#include "search/TaggedValue.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

namespace zelbar {

TEST(TaggedValue, ReadsOneField) {
    const std::array<const wchar_t*, 3> cases[] = {
        {L"TYPE=outgoing;START=01/02/2003 10:00;", L"START=", L"01/02/2003 10:00"},
        {L"TYPE=incoming", L"TYPE=", L"incomin"},  // not closed: the last character is lost
        {L"type=incoming;", L"TYPE=", L""},
        {L"MYTYPE=a;TYPE=b;", L"TYPE=", L"a"},  // found within a longer key
    };
    for (const auto& [data, key, expected] : cases) EXPECT_EQ(GetTaggedValue(data, key), expected) << data;
    const std::wstring longest = L"A=1;" + std::wstring(32767 - 4, L'x');
    EXPECT_EQ(GetTaggedValue(longest, L"A="), L"1");
    EXPECT_THROW(GetTaggedValue(longest + L"x", L"A="), std::overflow_error);
}

}  // namespace zelbar
