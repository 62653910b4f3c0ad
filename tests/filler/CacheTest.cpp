#include "automation/Attempts.h"
#include "filler/CacheUpdate.h"
#include "support/Handle.h"
#include "tests/filler/Fixture.h"
#include "tests/harness/Files.h"

/// The cache as the filler makes and changes it.
namespace {

namespace dao = zelbar::dao;
using CacheTest = FillerTest;

TEST_F(CacheTest, HasItsIndexesAndGetsMissingTablesBack) {
    addPerson(contacts(), L"Byron", L"1");
    harness::writeFile(newPath_, "what a killed first run has left");
    ASSERT_EQ(fill(), L"");
    EXPECT_TRUE(result_.change.created);
    // An index that is there already cannot be made a second time.
    constexpr long kIndexExists = 3375;
    for (const wchar_t* index : {L"[Name] On TCache ([Name])", L"PhoneNumber On TCache (PhoneNumber)",
                                 L"[Index] On TStoreID ([Index])"}) {
        zelbar::Attempts attempt;
        attempt([&] { openCache().call(dao::Execute, std::wstring(L"Create Index ") + index); });
        EXPECT_EQ(attempt.last().number, kIndexExists);
    }
    openCache().call(dao::Execute, L"Drop Table TCache");
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(people(), (Texts{L"Byron|1"}));
}

TEST_F(CacheTest, OnlyRowsThatDifferAreTouchedBesideAnOpenDriver) {
    addPerson(contacts(), L"Byron", L"1");
    ItemRecord hopper = addPerson(contacts(), L"Hopper", L"2");
    ASSERT_EQ(fill(), L"");
    const auto search =
        openCache().object(dao::OpenRecordset, L"Select * From TCache Order By Name", dao::kOpenDynaset);
    auto& calls = dao_.server().calls();
    calls.reset();
    ASSERT_EQ(fill(), L"");
    EXPECT_FALSE(result_.change.any());
    EXPECT_EQ(calls.invocations(L"AddNew") + calls.invocations(L"Execute") + calls.invocations(L"BeginTrans"),
              0);
    hopper.fields[L"BusinessTelephoneNumber"] = L"3";
    box_.save(hopper);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(calls.invocations(L"AddNew"), 1);
    EXPECT_EQ(calls.invocations(L"Delete"), 1);
    EXPECT_TRUE(filler::describe(result_).ends_with(
        L"\n2 contacts in 1 folder, 2 numbers.\n1 row added, 1 removed.\n"));
    EXPECT_EQ(search.object(dao::FieldNamed, L"PhoneNumber").text(dao::Value), L"1");
    EXPECT_EQ(people(), (Texts{L"Byron|1", L"Hopper|3"}));
}

TEST_F(CacheTest, HoldsTextsOfAnyKind) {
    filler::AddressBook book;
    const std::wstring longId(600, L'F'), name = L"O\"Brien | [x] 'y' \u00e9\u4e2d\xD83D\xDE00";
    book.storeIds = {longId};
    book.contacts = {{0, {longId, name, {L"*#?\"|"}}}, {0, {L"E2", L"", {L"5"}}}};
    {
        filler::SynchroFlag flag;
        filler::CacheFile file(gateway_, path_);
        filler::updateCache(file, book, numbers::PresentedForms({}), flag, observer_);
    }
    EXPECT_EQ(rows(L"TStoreID", {L"StoreID"}), (Texts{longId}));
    EXPECT_EQ(rows(L"TCache", {L"Name", L"PhoneNumber", L"EntryId"}),
              (Texts{L"Null|5|E2", name + L"|*#?\"||" + longId}));
}

TEST_F(CacheTest, OneThatCannotBeWrittenIsToldBeforeOutlookIsAsked) {
    const auto isRefused = [&] {
        outlook_.calls().reset();
        const std::wstring failure = fill();
        EXPECT_NE(failure.find(L"cannot be updated"), std::wstring::npos) << failure;
        EXPECT_EQ(outlook_.calls().invocations(), 0);
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

TEST_F(CacheTest, ANewOneIsPutInPlaceAsSoonAsNobodyHoldsIt) {
    addPerson(contacts(), L"Byron", L"1");
    zelbar::FileHandle scanner;
    observer_.onProgress = [&](const std::wstring& what) {
        if (what == kWriting)
            *scanner.put() = CreateFileW(newPath_.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                         nullptr, OPEN_EXISTING, 0, nullptr);
    };
    observer_.onPause = [&] { scanner.reset(); };
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(observer_.pauses, 1);
    EXPECT_EQ(people(), (Texts{L"Byron|1"}));
}

}  // namespace
