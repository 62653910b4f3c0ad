#include "tests/harness/Files.h"
#include "tests/standin_dao/Client.h"

namespace client {
namespace {

class FileTest : public DaoTest {
  protected:
    long openError(const std::wstring& path, bool exclusive = false, bool readOnly = false) {
        return errorOf([&] { engine_.object({L"OpenDatabase"}, path, exclusive, readOnly); });
    }
    long count(const Object& database) {
        return database.object({L"OpenRecordset"}, L"TCache").integer({L"RecordCount"});
    }
};

TEST_F(FileTest, RefusesFilesThatAreNoDatabases) {
    harness::writeFile(folder_.file(L"damaged.mdb"),
                       std::string("SQLite format 3\0", 16) + std::string(5000, 'x'));
    EXPECT_EQ(openError(folder_.file(L"missing.mdb")), 3024);
    EXPECT_EQ(openError(L""), 3024);
    EXPECT_EQ(openError(folder_.file(L"nowhere\\test.mdb")), 3044);
    EXPECT_EQ(openError(folder_.file(L"damaged.mdb")), 3343);
    EXPECT_EQ(errorOf([&] { engine_.object({L"CreateDatabase"}, path_, L""); }), 3204);
}

TEST_F(FileTest, ReadOnlyFileOpensForReadingAlone) {
    makeCache({L"Ann"});
    database_.call({L"Close"});
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(openError(path_), 3051);
    const Object database = engine_.object({L"OpenDatabase"}, path_, false, true);
    const Object rows = query(database, L"Select * From TCache");
    EXPECT_EQ(text(rows, L"Name"), L"Ann");
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3027);
    database.call({L"Close"});
    SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FileTest, ExclusiveUseKeepsOthersOut) {
    EXPECT_EQ(openError(path_, true), 3045) << "it is open already";
    database_.call({L"Close"});
    const Object database = engine_.object({L"OpenDatabase"}, path_, true);
    EXPECT_EQ(openError(path_), 3356);
    database.call({L"Close"});
    EXPECT_FALSE(harness::exists(folder_.file(L"test.ldb")))
        << "the last one to close it takes the lock file away";
    const HANDLE held = CreateFileW(path_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(openError(path_), 3045);
    CloseHandle(held);
}

TEST_F(FileTest, TwoSessionsOnOneFile) {
    makeCache({L"A", L"B", L"C"});
    const Object workspace = engine_.object({L"CreateWorkspace"}, L"", L"admin", L"", 2);
    const Object other = workspace.object({L"OpenDatabase"}, path_);
    const Object rows = query(other, L"Select * From TCache Order By Name");

    engine_.call({L"BeginTrans"});
    run(L"DELETE FROM TCache");
    EXPECT_EQ(count(other), 3) << "what is not committed is not seen";
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3260);
    EXPECT_EQ(text(rows, L"Name"), L"A");
    engine_.call({L"CommitTrans"});
    EXPECT_EQ(count(other), 0);
    workspace.call({L"Close"});
    EXPECT_EQ(errorOf([&] { count(other); }), 3420);
}

}  // namespace
}  // namespace client
