#include "standin/dao/Sqlite.h"
#include "tests/standin_dao/Client.h"

namespace client {
namespace {

using CursorTest = DaoTest;

TEST_F(CursorTest, RecordDeletedByOthersStaysInTheKeysetAndCannotBeRead) {
    makeCache({L"A", L"B", L"C"});
    const Object rows = query(L"Select * From TCache Order By Name");
    rows.call({L"MoveLast"});
    rows.call({L"MoveFirst"});
    const Object other = engine_.object({L"OpenDatabase"}, path_);
    other.call({L"Execute"}, L"DELETE FROM TCache WHERE Name = 'B'", kFailOnError);

    EXPECT_EQ(rows.integer({L"RecordCount"}), 3);
    rows.call({L"MoveNext"});
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
    EXPECT_EQ(errorOf([&] { text(rows, L"Name"); }), 3167);
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3167);
    rows.call({L"MoveNext"});
    EXPECT_EQ(text(rows, L"Name"), L"C");
}

TEST_F(CursorTest, RecordLockedWhenMetIsNotTakenForDeleted) {
    makeCache({L"A", L"B", L"C"});
    const Object rows = query(L"Select * From TCache Order By Name");
    {
        standin::dao::Connection other(path_, standin::dao::Access::readWrite);
        other.run(L"BEGIN EXCLUSIVE");
        EXPECT_EQ(errorOf([&] { rows.call({L"MoveNext"}); }), 3260);
        EXPECT_EQ(errorOf([&] { text(rows, L"Name"); }), 3260);
        EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3260);
    }
    EXPECT_EQ(text(rows, L"Name"), L"B");
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
}

}  // namespace
}  // namespace client
