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
    const Object other = open(path_);
    other.call({L"Execute"}, L"DELETE FROM TCache WHERE Name = 'B'", kFailOnError);

    EXPECT_EQ(rows.integer({L"RecordCount"}), 3);
    rows.call({L"MoveNext"});
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
    EXPECT_EQ(errorOf([&] { text(rows, L"Name"); }), 3167);
    EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3167);
    rows.call({L"MoveNext"});
    EXPECT_EQ(text(rows, L"Name"), L"C");
}

TEST_F(CursorTest, AddsThroughTheBuffer) {
    makeCache({L"A"});
    const Object rows = query(L"Select * From TCache");
    const Object name = rows.object({L"Fields"}, L"Name");
    EXPECT_EQ(errorOf([&] { name.put({L"Value"}, L"x"); }), 3020);
    EXPECT_EQ(errorOf([&] { rows.call({L"Update"}); }), 3020);

    rows.call({L"AddNew"});
    EXPECT_EQ(name.get({L"Value"}).type(), VT_NULL);
    name.put({L"Value"}, std::wstring(255, L'x'));
    EXPECT_EQ(errorOf([&] { name.put({L"Value"}, std::wstring(256, L'x')); }), 3163);
    rows.call({L"Update"});
    EXPECT_EQ(name.text({L"Value"}), L"A") << "the record before AddNew is current again";
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
    rows.call({L"Delete"});
    rows.call({L"MoveFirst"});
    EXPECT_EQ(text(rows, L"Name").size(), 255u) << "what was deleted is not met again";
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
