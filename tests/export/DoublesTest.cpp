#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

/// Three contacts of one employee, as after three initialisations or by three computers.
TEST_P(ExportTest, OfDoublesTheOneThatAUserHasWorkedOnStays) {
    const std::pair<std::vector<standin::outlook::Fields>, std::vector<size_t>> cases[] = {
        {{{}, {}, {{L"JobTitle", L"Chess champion"}}}, {2}},
        {{{}, {{L"Body", L"Ring twice"}}, {}}, {1}},
        {{{}, {{L"CarTelephoneNumber", L"1"}}, {}}, {1}},
        {{{}, {{L"Birthday", L"36526"}}, {}}, {1}},
        {{{}, {{L"Categories", L"Friends, Employees"}}, {}}, {1}},
        {{{{L"Spouse", L"A"}}, {{L"Spouse", L"B"}}, {{L"Spouse", L"A"}}}, {0, 1}},
        {{{}, {{L"Mine", L""}}, {{L"Mine", L""}}}, {1, 2}},
        // What the directory decides is nobody's work; what is not filed any more is in doubt.
        {{{}, {{L"MobileTelephoneNumber", L"1"}}, {}}, {0}},
        {{{}, {{L"Categories", L""}}, {}}, {0, 1}},
    };
    for (const auto& [edits, staying] : cases) {
        sql({L"Delete From Employees", L"Delete From BLFPagesContents"});
        fill(1);
        for (size_t i = 0; i < 3; ++i) EXPECT_TRUE(initialize());
        std::vector<ItemRecord> made = contacts();
        for (size_t i = 0; i < edits.size(); ++i) {
            for (const auto& [name, text] : edits[i]) made[i].fields[name] = text;
            if (edits[i].contains(L"Mine")) made[i].userProperties.push_back({L"Mine", 1, L"text"});
            mailbox.save(made[i]);
        }
        EXPECT_TRUE(synchronize());
        std::vector<size_t> left;
        for (size_t i = 0; i < made.size(); ++i)
            if (mailbox.item(made[i].id)->folder == made[i].folder) left.push_back(i);
        EXPECT_EQ(left, staying);
        mailbox.eraseItemsOf(folderCalled(L"Staff").id);
    }
}

}  // namespace

}  // namespace zelbar
