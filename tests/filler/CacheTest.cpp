#include "automation/Attempts.h"
#include "filler/CacheUpdate.h"
#include "support/Handle.h"
#include "tests/filler/Fixture.h"
#include "tests/harness/Files.h"

/// The cache as the filler makes and changes it.
namespace {

namespace dao = zelbar::dao;
using CacheTest = FillerTest;

TEST_F(CacheTest, OnlyRowsThatDifferAreTouchedBesideAnOpenDriver) {
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

TEST_F(CacheTest, OneThatCannotBeWrittenIsToldBeforeOutlookIsAsked) {
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
