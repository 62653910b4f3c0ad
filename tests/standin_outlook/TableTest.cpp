// A folder's table, its columns and its array.
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

class TableRules : public Outlook {
  protected:
    TableRules() { host->server().setOption(L"Version", L"12.0"); }
    static std::wstring cell(const Value& array, LONG column, LONG row) {
        LONG place[] = {column, row};
        Value element;
        EXPECT_EQ(SafeArrayGetElement(array.parray, place, &element), S_OK);
        return element.vt == VT_BSTR ? toText(element) : L"(" + std::to_wstring(element.vt) + L")";
    }
};

TEST_F(TableRules, ColumnsAreRefusedAndPutTheTableBeforeItsFirstRow) {
    host->server().setOption(L"Version", L"11.0");
    EXPECT_EQ(contacts().attempt(L"GetTable").result, DISP_E_UNKNOWNNAME);
    host->server().setOption(L"Version", L"12.0");
    ada();
    const late::Object table = contacts().object(L"GetTable"), columns = table.object(L"Columns");
    EXPECT_EQ(columns.number(L"Count"), 8);
    EXPECT_EQ(columns.object(L"Item", {5L}).text(L"Name"), L"MessageClass");
    EXPECT_EQ(columns.attempt(L"Item", {99L}).result, DISP_E_EXCEPTION);
    EXPECT_FALSE(columns.object(L"Item", {L"Department"}));
    table.get(L"GetArray", {10L});
    EXPECT_EQ(table.get(L"EndOfTable").boolVal, VARIANT_TRUE);
    for (const wchar_t* refused : {L"Class", L"Attachments", L"DLName", L"Unread", L"nonsense", L"",
                                   L"HTTP://schemas.microsoft.com/mapi/proptag/0x3A08001F"})
        EXPECT_EQ(columns.attempt(L"Add", {refused}).result, DISP_E_EXCEPTION) << refused;
    EXPECT_EQ(columns.number(L"Count"), 8);
    EXPECT_EQ(table.get(L"EndOfTable").boolVal, VARIANT_TRUE) << "a refused column moves nothing";
    columns.call(L"Add", {L"http://schemas.microsoft.com/mapi/proptag/0x3A08001F"});
    EXPECT_EQ(table.get(L"EndOfTable").boolVal, VARIANT_FALSE);
    host->server().setOption(L"Guard", L"abort");
    EXPECT_EQ(columns.attempt(L"Add", {L"PagerNumber"}).number, E_ABORT);
    EXPECT_EQ(contacts().attempt(L"GetTable", {L"[LastName] = 'x'"}).result, DISP_E_EXCEPTION);
    EXPECT_EQ(contacts().object(L"GetTable", {L"", 1L}).object(L"Columns").number(L"Count"), 5) << "hidden";
}

TEST_F(TableRules, AnArrayHoldsColumnsByRowsWithTextsCut) {
    const ItemRecord first = ada();
    host->mailbox().addContact(contactsRow(), {{L"LastName", std::wstring(300, L'x')}});
    host->mailbox().addDistributionList(contactsRow(), L"Team");
    const late::Object table = contacts().object(L"GetTable"), columns = table.object(L"Columns");
    columns.call(L"RemoveAll");
    for (const wchar_t* name : {L"EntryID", L"LastName", L"MessageClass"}) columns.call(L"Add", {name});
    const Value two = table.get(L"GetArray", {2L}), rest = table.get(L"GetArray", {2L});
    EXPECT_EQ(cell(two, 0, 0), host->mailbox().entryId(first));
    EXPECT_EQ(cell(two, 1, 0), L"Byron");
    EXPECT_EQ(cell(two, 1, 1).size(), 255u);
    EXPECT_EQ(cell(rest, 1, 0), L"(0)");
    EXPECT_EQ(cell(rest, 2, 0), L"IPM.DistList");
    const Value none = table.get(L"GetArray", {2L});
    EXPECT_EQ(none.parray->rgsabound[0].cElements, 0u);
}

}  // namespace
}  // namespace standin::outlook
