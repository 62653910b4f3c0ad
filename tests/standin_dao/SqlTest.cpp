#include "automation/Fault.h"
#include "standin/dao/JetFile.h"
#include "tests/standin_dao/Client.h"

namespace client {
namespace {

class SqlTest : public DaoTest {
  protected:
    std::wstring names(const std::wstring& rest) {
        return column(query(L"Select * From TCache Where " + rest + L" Order By Name"), L"Name");
    }
    long openError(const std::wstring& sql) {
        return errorOf([&] { query(sql); });
    }
    long runError(const std::wstring& sql) {
        return errorOf([&] { run(sql); });
    }
    /// How SQLite means to find the rows of a query.
    std::wstring searchPlan(const std::wstring& sql) {
        standin::dao::JetFile file(path_, standin::dao::Access::readOnly);
        const standin::dao::SelectPlan plan = file.plan(sql);
        standin::dao::Statement explain = file.connection().prepare(L"EXPLAIN QUERY PLAN " + plan.keysSql);
        explain.bind(plan.values);
        std::wstring steps;
        while (explain.step()) steps += explain.text(3) + L"; ";
        return steps;
    }
};

TEST_F(SqlTest, SelectsByCondition) {
    makeCache({L"Zed", L"anna", L"Emil", L"\x00C4nne", L"O'Neil", L"the \"Boss\""});
    run(L"INSERT INTO TCache (PhoneNumber) VALUES ('')");
    EXPECT_EQ(names(L"Name Like \"*\""), L"anna \x00C4nne Emil O'Neil the \"Boss\" Zed ")
        << "Null is never like";
    EXPECT_EQ(names(L"Name Like \"*N*\" Or Name = 'ZED'"), L"anna \x00C4nne O'Neil Zed ");
    EXPECT_EQ(names(L"Name Like 'O''N*'"), L"O'Neil ");
    EXPECT_EQ(names(L"Name Like \"*\"\"boss\"\"\""), L"the \"Boss\" ");
    EXPECT_EQ(names(L"tcache.[NAME] = \"EMIL\""), L"Emil ");
    EXPECT_EQ(names(L"PhoneNumber Like \"100[1-3]\" And Not (Name = 'zed')"), L"anna Emil ");
    EXPECT_EQ(names(L"Name In ('zed', 'emil')"), L"Emil Zed ");
    EXPECT_EQ(names(L"PhoneNumber Between '1002' And '1003'"), L"anna Emil ");
    EXPECT_EQ(names(L"Name Is Not Null And EntryId Is Null And PhoneNumber Like '1001'"), L"Zed ");
    EXPECT_EQ(query(L"Select * From TCache Where PhoneNumber Like \"\"").integer({L"RecordCount"}), 1);
    EXPECT_EQ(text(query(L"Select Count(*) As Total, Max(Name) From TCache"), L"Total"), L"7");
    EXPECT_EQ(column(query(L"Select Name From TCache Where Name Like 'z' & '*'"), L"Name"), L"Zed ");
}

TEST_F(SqlTest, BarsInALiteralEncloseAColumnUnlessTheyAreBuiltByCode) {
    makeCache({L"a|Name|b", L"Zed", L"a|x"});
    EXPECT_EQ(names(L"Name Like \"|name|\""), L"a|Name|b a|x Zed ");
    EXPECT_EQ(names(L"'x' & Name & 'y' = \"x|Name|y\""), L"a|Name|b a|x Zed ");
    EXPECT_EQ(names(L"Name Like \"a\" & Chr(124) & \"Name\" & Chr(124) & \"*\""), L"a|Name|b ");
}

TEST_F(SqlTest, RowsThatSortAlikeKeepTheirOrder) {
    makeCache({L"b", L"a", L"B", L"A", L"b"});
    EXPECT_EQ(column(query(L"Select * From TCache Order By Name"), L"PhoneNumber"),
              L"1002 1004 1001 1003 1005 ");
    EXPECT_EQ(column(query(L"Select * From TCache Order By Name Desc"), L"PhoneNumber"),
              L"1001 1003 1005 1002 1004 ");
    EXPECT_EQ(column(query(L"Select * From TCache Order By Name Desc, PhoneNumber Desc"), L"PhoneNumber"),
              L"1005 1003 1001 1004 1002 ");
}

TEST_F(SqlTest, JoinsNameTheirColumnsByTable) {
    run(L"CREATE TABLE Employees (EmployeeId LONG PRIMARY KEY, LastName TEXT(40))");
    run(L"CREATE TABLE BLFPagesContents (BLFpageId LONG, EmployeeId LONG, BindToEmployee LONG)");
    for (const wchar_t* row : {L"1, 'Ada'", L"2, 'Bob'", L"3, 'Cy'"}) {
        run(std::wstring(L"INSERT INTO Employees VALUES (") + row + L")");
    }
    for (const wchar_t* row : {L"1, 2, 0", L"1, 1, 1", L"2, 3, 0", L"2, 9, 0"}) {
        run(std::wstring(L"INSERT INTO BLFPagesContents VALUES (") + row + L")");
    }
    const std::wstring join =
        L"Select * from BLFPagesContents, Employees where Employees.EmployeeId = BLFPagesContents.EmployeeId "
        L"and ";
    const Object free = query(join + L"BindToEmployee = 0 and BLFpageId = 1");
    EXPECT_EQ(text(free, L"Employees.EmployeeID"), L"2");
    EXPECT_EQ(text(free, L"BLFPagesContents.EmployeeId"), L"2");
    EXPECT_EQ(text(free, L"LastName"), L"Bob");
    EXPECT_EQ(errorOf([&] { text(free, L"EmployeeId"); }), 3265);
    EXPECT_EQ(errorOf([&] { free.call({L"Delete"}); }), 3027);
    EXPECT_EQ(column(query(join + L"BLFpageId = 2"), L"LastName"), L"Cy ");
    EXPECT_EQ(openError(L"Select * From Employees, BLFPagesContents Where EmployeeId = 1"), 3079);
}

TEST_F(SqlTest, TableNamedDefaultNeedsNoBrackets) {
    run(L"CREATE TABLE Default (Label TEXT, Index2 LONG)");
    run(L"INSERT INTO Default VALUES ('Work', 1)");
    EXPECT_EQ(text(query(L"select * from Default"), L"label"), L"Work");
}

TEST_F(SqlTest, RefusesWhatJetRefuses) {
    makeCache({L"Ann"});
    run(L"CREATE TABLE Employees (EmployeeId LONG)");
    const std::pair<const wchar_t*, long> kQueries[] = {
        {L"", 3078},
        {L"Nowhere", 3078},
        {L"Select * From Nowhere", 3078},
        {L"Select * From", 3131},
        {L"Select * From Select", 3131},
        {L"Select *", 3141},
        {L"Select From TCache", 3141},
        {L"Select * From TCache Where Nickname = 'x'", 3061},
        {L"Select Nickname From TCache", 3061},
        {L"Select * From TCache Order By Nickname", 3061},
        {L"Select * From TCache Order Name", 3138},
        {L"Select * From TCache Where Name Like \"x\"y\" Order By Name", 3075},
        {L"Select * From TCache Where Name Like \"a[b\"", 3075},
        {L"Select * From TCache Where Name Like \"a|b\"", 3075},
        {L"Select * From TCache Where Name Like \"||\"", 3075},
        {L"Select * From TCache Where Name Like \"|Nickname|\"", 3061},
        {L"Select * From TCache Where Name = Chr(\"x\")", 3075},
        {L"Select * From Employees Where EmployeeId = ", 3075},
        {L"Select * From Employees Where EmployeeId = 5 5", 3075},
        {L"Select * From Employees Where EmployeeId = (5", 3075},
        {L"Select * From Employees Where EmployeeId = 5)", 3075},
        {L"Select * From Employees Where EmployeeId = 5 Having 1", 3142},
        {L"Select * From Employees Where EmployeeId = 'five'", 3464},
        {L"Select * From Employees Where EmployeeId = five", 3061},
        {L"Select Sqrt(EmployeeId) From Employees", 3085},
    };
    for (const auto& [sql, number] : kQueries) EXPECT_EQ(openError(sql), number) << sql;
    EXPECT_EQ(openError(L"Select * From TCache Where " + std::wstring(50000, L'(')), 3075);

    const std::pair<const wchar_t*, long> kCommands[] = {
        {L"", 3129},
        {L"Nonsense", 3129},
        {L"Select * From TCache", 3065},
        {L"Delete TCache", 3131},
        {L"Delete From Nowhere", 3078},
        {L"Insert TCache Values ('x')", 3134},
        {L"Insert Into TCache (Name) Values ('x', 'y')", 3346},
        {L"Insert Into TCache (Nickname) Values ('x')", 3127},
        {L"Update TCache Name = 'x'", 3144},
        {L"Update TCache Set Nickname = 'x'", 3061},
        {L"Create Table TCache (A TEXT)", 3010},
        {L"Create Table T (Index TEXT)", 3292},
        {L"Create Table T (A TEXT(256))", 3292},
        {L"Create Table T (A COLOUR)", 3292},
        {L"Create Index NameIndex On TCache (Name)", 3375},
        {L"Drop Table T", 3376},
        {L"Insert Into Employees Values ('five')", 3464},
    };
    for (const auto& [sql, number] : kCommands) EXPECT_EQ(runError(sql), number) << sql;
    EXPECT_EQ(runError(L"Insert Into TCache (StoreID) Values ('12345678901')"), 3163);
}

TEST_F(SqlTest, FaultCarriesTheFailedExpressionAndTheClass) {
    makeCache({});
    try {
        query(L"Select * From TCache Where Name Like \"x\"y\" Order By Name");
        FAIL() << "no error";
    } catch (const zelbar::Fault& fault) {
        EXPECT_EQ(fault.source, L"DAO.Database");
        EXPECT_EQ(fault.description,
                  L"Syntax error in string in query expression 'Name Like \"x\"y\" Order By Name'.");
    }
}

TEST_F(SqlTest, ExecutePassesOverRowsUnlessToldToFail) {
    run(L"CREATE TABLE T (A TEXT(3))");
    run(L"CREATE UNIQUE INDEX I ON T (A)");
    run(L"INSERT INTO T VALUES ('abc')");
    EXPECT_EQ(runError(L"INSERT INTO T VALUES ('ABC')"), 3022);
    EXPECT_EQ(errorOf([&] { database_.call({L"Execute"}, L"INSERT INTO T VALUES ('ABC')"); }), 0);
    EXPECT_EQ(errorOf([&] { database_.call({L"Execute"}, L"INSERT INTO T VALUES ('abcd')"); }), 0);
    EXPECT_EQ(database_.integer({L"RecordsAffected"}), 0);
    run(L"UPDATE T SET A = 'x' WHERE A = 'ABC'");
    EXPECT_EQ(database_.integer({L"RecordsAffected"}), 1);
    run(L"DELETE * FROM T");
    EXPECT_EQ(query(L"T").integer({L"RecordCount"}), 0);
}

TEST_F(SqlTest, PatternsThatBeginPlainlyUseTheIndex) {
    makeCache({L"Ann"});
    const std::wstring byNumber = L"Select * From TCache Where PhoneNumber Like \"";
    const std::wstring byName = L"Select * From TCache Where Name Like \"";
    const std::wstring order = L"\" Order By Name";
    struct Case {
        std::wstring sql;
        const wchar_t* plan;
    };
    const Case cases[] = {
        {byNumber + L"1001" + order, L"NumberIndex.prefix (PhoneNumber=?)"},
        {byNumber + L"[#]31[#]" + order, L"NumberIndex.prefix (PhoneNumber=?)"},
        {byNumber + L"10*" + order, L"NumberIndex.prefix (PhoneNumber>? AND PhoneNumber<?)"},
        {byNumber + L"10##" + order, L"NumberIndex.prefix (PhoneNumber>? AND PhoneNumber<?)"},
        {byName + L"A*" + order, L"NameIndex.prefix (Name>? AND Name<?)"},
        {byName + L"*n" + order, L"SCAN TCache USING COVERING INDEX TCache.NameIndex"},
    };
    for (const Case& c : cases) {
        EXPECT_NE(searchPlan(c.sql).find(c.plan), std::wstring::npos) << c.sql << " -> " << searchPlan(c.sql);
    }
    EXPECT_EQ(searchPlan(byNumber + L"*1" + order).find(L"SEARCH"), std::wstring::npos);
}

TEST_F(SqlTest, IndexFindsWhatAScanFinds) {
    const std::vector<std::wstring> all{L"a",    L"A", L"\x00C4b", L"\x00E4", L"ab",
                                        L"aB c", L"b", L"\x0177z", L"\xFFFF", L"a-b"};
    makeCache(all);
    for (const wchar_t* pattern : {L"a*", L"A", L"\x00E4*", L"ab*", L"\x0176*", L"\xFFFF*", L"b*", L"a?*"}) {
        const std::wstring quoted = std::wstring(L"'") + pattern + L"'";
        // A joined text is not known before the query runs, so the index is no help there.
        EXPECT_EQ(names(L"Name Like " + quoted), names(L"Name Like " + quoted + L" & ''")) << pattern;
    }
}

TEST_F(SqlTest, TablesAreListed) {
    makeCache({L"Ann"});
    run(L"CREATE TABLE TStoreID ([Index] TEXT(10), StoreID MEMO)");
    const Object tables = database_.object({L"TableDefs"});
    EXPECT_EQ(tables.integer({L"Count"}), 2);
    EXPECT_EQ(tables.object({L"Item"}, 1).text({L"Name"}), L"TStoreID");
    const Object cache = tables.object({L"Item"}, L"tcache");
    EXPECT_EQ(cache.integer({L"RecordCount"}), 1);
    EXPECT_EQ(cache.object({L"Fields"}, L"PhoneNumber").integer({L"Size"}), 50);
    EXPECT_EQ(errorOf([&] { tables.object({L"Item"}, L"Nowhere"); }), 3265);
    run(L"DROP INDEX NameIndex ON TCache");
    run(L"DROP TABLE TStoreID");
    EXPECT_EQ(tables.integer({L"Count"}), 1);
}

}  // namespace
}  // namespace client
