#include <gtest/gtest.h>

#include <array>

#include "client/ContactCard.h"
#include "client/ContactText.h"
#include "client/Json.h"

namespace pimcall {
namespace {

TEST(Json, EscapesWhatStrictReadersRefuse) {
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"a \"b\" c:\\d", L"\"a \\\"b\\\" c:\\\\d\""},
        {std::wstring(L"\0\t\r\n", 4), L"\"\\u0000\\t\\u000d\\n\""},
        {L"\x7F\x2028\x202E", L"\"\\u007f\\u2028\\u202e\""},
        {L"\xD83D\xD83D\xDE00x", L"\"\uFFFD\U0001F600x\""},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(expected, json::quoted(text));
}

TEST(ContactText, LetsNoNameSteerTheScreen) {
    ContactCard card;
    card.firstName = L"A\x1B[2J";
    card.lastName = L"B\r\n\x9D";
    card.department = L"x\ty\u202Ez\u2069\u200F";
    EXPECT_EQ(L"A [2J B   \n  Department    x y z  \n  In Outlook    no\n", contactText(card, false));
}

TEST(ContactCard, TakesEntriesApart) {
    const std::array<const wchar_t*, 3> cases[] = {{L"TTY/TDD: x: \t1: \t2", L"TTY/TDD: x", L"1: \t2"},
                                                   {L"Mobile: ", L"", L"Mobile: "}};
    for (const auto& [entry, label, value] : cases) {
        EXPECT_EQ(label, splitEntry(entry).label);
        EXPECT_EQ(value, splitEntry(entry).value);
    }
}

}  // namespace
}  // namespace pimcall
