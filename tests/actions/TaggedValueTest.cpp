#include "search/TaggedValue.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zelbar {

TEST(TaggedValue, ReadsOneField) {
    const struct {
        const wchar_t* data;
        const wchar_t* key;
        const wchar_t* expected;
    } cases[] = {
        {L"TYPE=outgoing;START=01/02/2003 10:00:00;", L"START=", L"01/02/2003 10:00:00"},
        {L"TYPE=outgoing;START=01/02/2003 10:00:00;", L"DURATION=", L""},
        {L"TYPE=incoming", L"TYPE=", L"incomin"},  // not closed: the last character is lost
        {L"TYPE=", L"TYPE=", L""},
        {L"TYPE=;ORIGIN=x;", L"TYPE=", L""},
        {L"type=incoming;", L"TYPE=", L""},
        {L"MYTYPE=a;TYPE=b;", L"TYPE=", L"a"},  // found within a longer key
        {L"A=1;A=2;", L"A=", L"1"},
        {L"", L"TYPE=", L""},
    };
    for (const auto& c : cases) EXPECT_EQ(GetTaggedValue(c.data, c.key), c.expected) << c.data;
}

TEST(TaggedValue, PositionsHave16Bits) {
    const std::wstring longest = L"A=1;" + std::wstring(32767 - 4, L'x');
    EXPECT_EQ(GetTaggedValue(longest, L"A="), L"1");
    EXPECT_THROW(GetTaggedValue(longest + L"x", L"A="), std::overflow_error);
}

}  // namespace zelbar
