#include "tests/filler/Fixture.h"

/// The cache as the filler makes and changes it, to the end or not.
namespace {

namespace dao = zelbar::dao;

constexpr int kTooMany = 2000;

class InterruptedRunTest : public FillerTest {
  protected:
    void setNumber(const wchar_t* number) {
        byron_.fields[L"BusinessTelephoneNumber"] = number;
        mailbox.save(byron_);
    }
    ItemRecord byron_ = addPerson(defaultContacts, L"Byron", L"1");
};

TEST_F(InterruptedRunTest, TheUserCanEndItAtAnyPoint) {
    ASSERT_EQ(fill(), L"");
    setNumber(L"2");
    int n = 0;
    for (observer_.cancelAt = 0; *observer_.cancelAt <= 0; ++n) {
        ASSERT_LT(n, kTooMany) << "no end in sight";
        EXPECT_EQ(people(), Texts{L"Byron|1"}) << n;
        observer_.cancelAt = n + 1;
        const std::wstring failure = fill();
        EXPECT_EQ(failure, *observer_.cancelAt > 0 ? L"" : L"The run was interrupted.");
        EXPECT_EQ(flag(), L"0");
    }
    EXPECT_GT(n, 5);
}

TEST_F(InterruptedRunTest, TheFlagIsUpWhileRowsAreWrittenAndOthersAreRespected) {
    std::wstring ours;
    observer_.onProgress = [&](const std::wstring& what) {
        EXPECT_EQ(flag() == L"1", what == kWriting);
        ours = registry.get(HKEY_CURRENT_USER, zelbar::kPopupKey, L"SynchroProcess").value_or(L"");
    };
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(flag(), L"0");
    observer_.onProgress = {};
    const struct {
        std::wstring owner;
        const wchar_t *flagAfterwards, *failure;
    } cases[] = {
        {L"", L"1", L""},                // another program's
        {L"4294967292 1 1", L"0", L""},  // nobody has this number
        {ours + L"0", L"0", L""},        // the number has been given again
        {ours, L"1", L"Another fillcache is writing the cache just now. Wait until it has ended"},
    };
    for (const auto& c : cases) {
        setNumber(c.owner.c_str());
        popup(L"SynchroInProgress", L"1");
        popup(L"SynchroProcess", c.owner);
        EXPECT_EQ(fill(), c.failure);
        EXPECT_EQ(flag(), c.flagAfterwards);
        EXPECT_EQ(observer_.notes.size(), c.owner.empty() ? 1u : 0u);
    }
}

TEST_F(FillerTest, OnlyRowsThatDifferAreTouchedBesideAnOpenDriver) {
    addPerson(defaultContacts, L"Byron", L"1");
    ItemRecord hopper = addPerson(defaultContacts, L"Hopper", L"2");
    ASSERT_EQ(fill(), L"");
    const auto search =
        openCache().object(dao::OpenRecordset, L"Select * From TCache Order By Name", dao::kOpenDynaset);
    auto& calls = dao.server().calls();
    calls.reset();
    ASSERT_EQ(fill(), L"");
    EXPECT_FALSE(result_.change.any());
    EXPECT_EQ(calls.invocations(L"AddNew") + calls.invocations(L"Execute") + calls.invocations(L"BeginTrans"),
              0);
    hopper.fields[L"BusinessTelephoneNumber"] = L"3";
    mailbox.save(hopper);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(calls.invocations(L"AddNew"), 1);
    EXPECT_EQ(calls.invocations(L"Delete"), 1);
    EXPECT_TRUE(filler::describe(result_).ends_with(
        L"\n2 contacts in 1 folder, 2 numbers.\n1 row added, 1 removed.\n"));
    EXPECT_EQ(search.object(dao::FieldNamed, L"PhoneNumber").text(dao::Value), L"1");
    EXPECT_EQ(people(), (Texts{L"Byron|1", L"Hopper|3"}));
}

TEST_F(FillerTest, WhateverRowsFollowFromIsLookedAtInEveryRun) {
    ItemRecord hopper = addPerson(defaultContacts, L"Hopper", L"089 2123456");
    ASSERT_EQ(fill(), L"");
    const auto sql = [&](const wchar_t* text) { openCache().call(dao::Execute, text); };
    const std::pair<std::function<void()>, const wchar_t*> changes[] = {
        {[&] { place_.region = L"DE"; }, L"Null|+49892123456"},
        {[&] { mailbox.save((hopper.fields[L"LastName"] = L"Murray", hopper)); }, L"Murray|089 2123456"},
        {[&] { sql(L"Update TCache Set PhoneNumber = '1'"); }, L"Null|+49892123456"},
        {[&] { sql(L"Delete From TStoreID"); }, L"Null|+49892123456"},
    };
    for (const auto& [change, row] : changes) {
        change();
        ASSERT_EQ(fill(), L"");
        const Texts found = people();
        EXPECT_EQ(std::count(found.begin(), found.end(), row), 1) << row;
        EXPECT_EQ(rows(L"TStoreID", {L"StoreID"}).size(), 1u);
    }
}

TEST_F(FillerTest, OneThatKeepsOtherTextsThanThoseWrittenStaysAsItWas) {
    addPerson(defaultContacts, L"Byron", L"05");
    ASSERT_EQ(fill(), L"");
    for (const wchar_t* sql :
         {L"Drop Table TCache",
          L"Create Table TCache ([Name] Text(255), PhoneNumber Long, EntryId Memo, StoreID Text(50))",
          L"Insert Into TCache ([Name], PhoneNumber) Values ('Hopper', 7)"})
        openCache().call(dao::Execute, sql);
    EXPECT_TRUE(fill().starts_with(L"The cache does not take what is written"));
    EXPECT_EQ(content(), Texts{L"Hopper|7|Null|Null"});
}

TEST_F(FillerTest, OneThatCannotBeWrittenIsToldBeforeOutlookIsAsked) {
    const auto isRefused = [&] {
        outlook.server().calls().reset();
        const std::wstring failure = fill();
        EXPECT_NE(failure.find(L"cannot be updated"), std::wstring::npos) << failure;
        EXPECT_EQ(outlook.server().calls().invocations(), 0);
    };
    harness::writeFile(path_, "no database at all");
    isRefused();
    EXPECT_EQ(harness::readFile(path_), "no database at all");
    DeleteFileW(path_.c_str());
    ASSERT_EQ(fill(), L"");
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
    isRefused();
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
    const auto locked = openCache(true);
    isRefused();
}

}  // namespace
