#include <gtest/gtest.h>

#include "automation/Attempts.h"
#include "automation/DaoNames.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "tests/filler/Fixture.h"
#include "tests/harness/Files.h"

namespace {

namespace dao = zelbar::dao;
using zelbar::Object;
using Rows = std::vector<CacheContent::Row>;

/// The cache as a driver beside the filler has it.
Object open(zelbar::Gateway& gateway, const std::wstring& path) {
    return gateway.create(zelbar::Server::Dao, L"DAO.DBEngine.36", dao::kEngine)
        .object(dao::OpenDatabase, path);
}

TEST_F(CacheTest, MakesTheCacheWithItsIndexes) {
    ASSERT_EQ(update(smallBook()), L"");
    EXPECT_TRUE(change_.created);
    EXPECT_EQ(content().stores, (Rows{{L"1", L"STORE-A"}}));
    EXPECT_EQ(content().numbers, (Rows{{L"Byron Ada", L"1", L"E1", L"1"},
                                       {L"Byron Ada", L"2", L"E1", L"1"},
                                       {L"Hopper Grace", L"3", L"E2", L"1"}}));
    EXPECT_EQ(flag(), L"0");
    EXPECT_TRUE(isTidy());
    // An index that is there already cannot be made a second time.
    constexpr long kIndexExists = 3375;
    zelbar::Gateway gateway;
    const Object database = open(gateway, path());
    for (const wchar_t* index : {L"[Name] On TCache ([Name])", L"PhoneNumber On TCache (PhoneNumber)",
                                 L"[Index] On TStoreID ([Index])"}) {
        zelbar::Attempts attempt;
        attempt([&] { database.call(dao::Execute, std::wstring(L"Create Index ") + index); });
        EXPECT_EQ(attempt.last().number, kIndexExists);
    }
}

TEST_F(CacheTest, TouchesOnlyTheRowsThatDiffer) {
    const auto& calls = dao_.server().calls();
    ASSERT_EQ(update(smallBook(L"3")), L"");
    const std::string before = harness::readFile(path());
    dao_.server().calls().reset();
    ASSERT_EQ(update(smallBook(L"3")), L"");
    EXPECT_FALSE(change_.any());
    EXPECT_EQ(calls.invocations(L"Recordset.Update") + calls.invocations(L"Database.Execute") +
                  calls.invocations(L"BeginTrans"),
              0);
    EXPECT_EQ(harness::readFile(path()), before);

    ASSERT_EQ(update(smallBook(L"4")), L"");
    EXPECT_EQ(change_.added, 1);
    EXPECT_EQ(change_.removed, 1);
    EXPECT_FALSE(change_.storesChanged);
    EXPECT_EQ(calls.invocations(L"Recordset.AddNew"), 1);
    EXPECT_EQ(calls.invocations(L"Recordset.Delete"), 1);
    EXPECT_EQ(content().numbers[2], (CacheContent::Row{L"Hopper Grace", L"4", L"E2", L"1"}));
}

TEST_F(CacheTest, StoresKeepTheirKeys) {
    filler::AddressBook book = smallBook();
    book.storeIds = {L"STORE-B", L"STORE-A"};
    ASSERT_EQ(update(book), L"");
    ASSERT_EQ(update(smallBook()), L"");  // store A alone, which was the second
    EXPECT_TRUE(change_.storesChanged);
    EXPECT_EQ(content().stores, (Rows{{L"2", L"STORE-A"}}));
    EXPECT_EQ(content().numbers[0], (CacheContent::Row{L"Byron Ada", L"1", L"E1", L"2"}));
}

TEST_F(CacheTest, KeepsWhatItHasOfUnreadableContacts) {
    ASSERT_EQ(update(smallBook()), L"");
    filler::AddressBook book = smallBook();
    book.contacts.clear();
    book.unreadable.emplace(0, L"E1");
    ASSERT_EQ(update(book), L"");
    EXPECT_EQ(content().numbers,
              (Rows{{L"Byron Ada", L"1", L"E1", L"1"}, {L"Byron Ada", L"2", L"E1", L"1"}}));
}

TEST_F(CacheTest, StoresTextsOfAnyKind) {
    filler::AddressBook book;
    const std::wstring longId(600, L'F');
    book.storeIds = {longId};
    book.contacts = {{0, {longId, L"O\"Brien | [x] 'y' \u00e9\u4e2d\xD83D\xDE00", {L"*#?\"|"}}},
                     {0, {L"E2", L"", {L"5"}}}};
    ASSERT_EQ(update(book), L"");
    EXPECT_EQ(content().stores, (Rows{{L"1", longId}}));
    EXPECT_EQ(content().numbers,
              (Rows{{L"Null", L"5", L"E2", L"1"},
                    {L"O\"Brien | [x] 'y' \u00e9\u4e2d\xD83D\xDE00", L"*#?\"|", longId, L"1"}}));
    ASSERT_EQ(update(book), L"");
    EXPECT_FALSE(change_.any());
}

TEST_F(CacheTest, WorksBesideAnOpenDriver) {
    ASSERT_EQ(update(smallBook(L"3")), L"");
    zelbar::Gateway gateway;
    const Object driver = open(gateway, path());
    const auto search = [&](const std::wstring& number) {
        return driver.object(dao::OpenRecordset,
                             L"Select * From TCache Where PhoneNumber Like \"" + number + L"\" Order By Name",
                             dao::kOpenDynaset);
    };
    const Object begun = search(L"*");
    ASSERT_EQ(update(smallBook(L"4")), L"");
    EXPECT_FALSE(begun.boolean(dao::EOF_));
    EXPECT_EQ(begun.object(dao::FieldNamed, L"PhoneNumber").text(dao::Value), L"1");
    EXPECT_TRUE(search(L"3").boolean(dao::EOF_));
    EXPECT_EQ(search(L"4").object(dao::FieldNamed, L"EntryId").text(dao::Value), L"E2");
}

TEST_F(CacheTest, AFileThatIsNoCacheStaysAndIsReported) {
    for (const std::string& bytes : {std::string(), std::string("no database at all")}) {
        harness::writeFile(path(), bytes);
        EXPECT_NE(update(smallBook()).find(L"cannot be updated"), std::wstring::npos);
        EXPECT_EQ(harness::readFile(path()), bytes);
        EXPECT_EQ(flag(), L"absent");
    }
}

TEST_F(CacheTest, MissingTablesAreMade) {
    ASSERT_EQ(update(smallBook()), L"");
    {
        zelbar::Gateway gateway;
        open(gateway, path()).call(dao::Execute, L"Drop Table TCache");
    }
    ASSERT_EQ(update(smallBook()), L"");
    EXPECT_FALSE(change_.created);
    EXPECT_EQ(content().numbers.size(), 3u);
}

}  // namespace
