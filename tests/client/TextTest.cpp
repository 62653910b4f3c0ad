#include <gtest/gtest.h>

#include <array>

#include "client/ContactText.h"
#include "tests/client/SampleContact.h"

namespace pimcall {
namespace {

TEST(ContactText, ShowsWhatIsThereAndNothingElse) {
    // What a contact of Outlook's has not: an employee's number, a picture.
    const std::wstring shown = contactText(sampleContact(), true);
    EXPECT_NE(std::wstring::npos,
              shown.find(L"\n                lee@example.org\n  Photo         C:\\data\\"));
    EXPECT_TRUE(shown.ends_with(L"\n  Employee id   7\n")) << shown.c_str();
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
