// A folder's table, its columns and its array.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class TableRules : public Outlook {
  protected:
    TableRules() { host.server().setOption(L"Version", L"12.0"); }
    template <class... Arguments>
    static bool isRefused(const Object& object, const wchar_t* member, const Arguments&... arguments) {
        return faultOf([&] { object.call({member}, arguments...); }).number != 0;
    }
};

TEST_F(TableRules, ColumnsAreRefusedAndPutTheTableBeforeItsFirstRow) {
    host.server().setOption(L"Version", L"11.0");
    EXPECT_TRUE(isRefused(contacts(), L"GetTable"));
    host.server().setOption(L"Version", L"12.0");
    ada();
    const Object table = contacts().object({L"GetTable"}), columns = table.object({L"Columns"});
    EXPECT_EQ(columns.integer({L"Count"}), 8);
    EXPECT_EQ(columns.object({L"Item"}, 5).text({L"Name"}), L"MessageClass");
    EXPECT_TRUE(isRefused(columns, L"Item", 99));
    EXPECT_FALSE(columns.object({L"Item"}, L"Department"));
    table.call({L"GetArray"}, 10);
    EXPECT_TRUE(table.boolean({L"EndOfTable"}));
    for (const wchar_t* refused : {L"Class", L"Attachments", L"DLName", L"Unread", L"nonsense", L"",
                                   L"HTTP://schemas.microsoft.com/mapi/proptag/0x3A08001F"})
        EXPECT_TRUE(isRefused(columns, L"Add", refused)) << refused;
    EXPECT_EQ(columns.integer({L"Count"}), 8);
    EXPECT_TRUE(table.boolean({L"EndOfTable"})) << "a refused column moves nothing";
    columns.call({L"Add"}, L"http://schemas.microsoft.com/mapi/proptag/0x3A08001F");
    EXPECT_FALSE(table.boolean({L"EndOfTable"}));
    host.server().setOption(L"Guard", L"abort");
    EXPECT_TRUE(isRefused(columns, L"Add", L"PagerNumber"));
    EXPECT_TRUE(isRefused(contacts(), L"GetTable", L"[LastName] = 'x'"));
    EXPECT_EQ(contacts().object({L"GetTable"}, L"", 1).object({L"Columns"}).integer({L"Count"}), 5)
        << "hidden";
}

}  // namespace
}  // namespace standin::outlook
