#include "client/Text.h"

#include <gtest/gtest.h>

#include <array>

#include "client/ContactText.h"
#include "tests/client/SampleContact.h"

namespace pimcall {
namespace {

TEST(Text, BecomesBytesEvenWhenItIsBroken) {
    EXPECT_EQ("", utf8(L""));
    EXPECT_EQ("a\xC3\xA9\xF0\x9F\x98\x80", utf8(L"a\u00E9\U0001F600"));
    EXPECT_EQ("\xEF\xBF\xBDx\xEF\xBF\xBD", utf8(L"\xDE00x\xD83D"));
    EXPECT_EQ(std::string("a\0b", 3), utf8(std::wstring(L"a\0b", 3)));
}

TEST(ContactText, ShowsWhatIsThereAndNothingElse) {
    const std::wstring all =
        L"Lee, Ann\n"
        L"  Company       Holm & S\u00F8n\n"
        L"  Department    Sales\n"
        L"  Telephone     Business  +45 33 1\n"
        L"                Home      +45 44 2\n"
        L"  E-mail        ann@example.org\n"
        L"                lee@example.org\n"
        L"  Photo         C:\\data\\pimcontact_1.jpg\n"
        L"  In Outlook    yes\n";
    EXPECT_EQ(all, contactText(sampleContact(), false));
    EXPECT_EQ(all + L"  Contact id    00AB\n  Store id      00CD\n  Employee id   7\n",
              contactText(sampleContact(), true));

    ContactCard unknown;
    unknown.mainNumber = L"0123";
    EXPECT_EQ(L"0123\n  Telephone     0123\n  In Outlook    no\n", contactText(unknown, true));
    EXPECT_EQ(L"(no name)\n  In Outlook    no\n", contactText({}, false));
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
