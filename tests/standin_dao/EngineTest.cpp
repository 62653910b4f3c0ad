#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "automation/Object.h"
#include "standin/dao/DaoError.h"
#include "standin/dao/Host.h"
#include "standin/dao/Like.h"
#include "standin/dao/Sqlite.h"
#include "tests/automation/FaultOf.h"
#include "tests/harness/TemporaryFolder.h"

namespace standin::dao {
namespace {

using zelbar::Object;

constexpr long kDynaset = 2;
constexpr long kFailOnError = 128;

long errorOf(const std::function<void()>& action) {
    return zelbar::faultOf(action).number;
}

std::wstring text(const Object& recordset, const std::wstring& field) {
    return recordset.object({L"Fields"}, field).text({L"Value"});
}
/// The texts of one field from the first row to the last, each followed by a blank.
std::wstring column(const Object& recordset, const std::wstring& field) {
    std::wstring all;
    for (; !recordset.boolean({L"EOF"}); recordset.call({L"MoveNext"})) all += text(recordset, field) + L" ";
    return all;
}

/// A late-bound client of the engine that this process hosts.
class DaoTest : public testing::Test {
  protected:
    ~DaoTest() override {
        database_ = engine_ = Object();
        EXPECT_EQ(host_.server().liveObjects(), 0);
    }
    void run(const std::wstring& sql) { database_.call({L"Execute"}, sql, kFailOnError); }
    Object query(const std::wstring& sql) { return database_.object({L"OpenRecordset"}, sql, kDynaset); }
    /// TCache as the product has it, with one row for each name; numbers are 1001, 1002, ...
    void makeCache(const std::vector<std::wstring>& names) {
        run(L"CREATE TABLE TCache (Name TEXT(255), PhoneNumber TEXT(50), EntryId TEXT(255), StoreID "
            L"TEXT(10))");
        long number = 1000;
        const Object rows = database_.object({L"OpenRecordset"}, L"TCache");
        for (const std::wstring& name : names) {
            rows.call({L"AddNew"});
            rows.object({L"Fields"}, L"Name").put({L"Value"}, name);
            rows.object({L"Fields"}, L"PhoneNumber").put({L"Value"}, std::to_wstring(++number));
            rows.call({L"Update"});
        }
    }

    Host host_;
    harness::TemporaryFolder folder_;
    std::wstring path_ = folder_.file(L"test.mdb");
    Object engine_ = zelbar::Gateway().create(zelbar::Server::Dao, kEngineProgId, zelbar::kUnknownClass);
    Object database_ = engine_.object({L"CreateDatabase"}, path_, L";LANGID=0x0409;CP=1252");
};

TEST(Like, MatchesAsJetDoes) {
    constexpr std::tuple<const wchar_t*, const wchar_t*, bool> kCases[] = {
        {L"", L"a", false},          {L"abc", L"abc ", false},     {L"#", L"\x0667", false},
        {L"##", L"09", true},        {L"[*][?][[]", L"*?[", true}, {L"a]b", L"a]b", true},
        {L"[abc]", L"B", true},      {L"[!abc]", L"d", true},      {L"[!abc]", L"A", false},
        {L"[!]", L"!", true},        {L"[a-c]x", L"Bx", true},     {L"[A-E]", L"\x00CA", false},
        {L"[A-F]", L"\x00CA", true}, {L"_", L"x", false},          {L"M\x00DCLLER", L"m\x00FCller", true},
    };
    for (const auto& [pattern, text, matches] : kCases)
        EXPECT_EQ(LikePattern(pattern).matches(text), matches) << pattern << " | " << text;
    for (const wchar_t* pattern : {L"[", L"a[bc", L"[!", L"[z-a]"})
        EXPECT_THROW(LikePattern{pattern}, DaoError) << pattern;
}

TEST_F(DaoTest, RecordDeletedByOthersStaysInTheKeysetAndCannotBeRead) {
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

TEST_F(DaoTest, RecordLockedWhenMetIsNotTakenForDeleted) {
    makeCache({L"A", L"B", L"C"});
    const Object rows = query(L"Select * From TCache Order By Name");
    {
        Connection other(path_, Access::readWrite);
        other.run(L"BEGIN EXCLUSIVE");
        EXPECT_EQ(errorOf([&] { rows.call({L"MoveNext"}); }), 3260);
        EXPECT_EQ(errorOf([&] { text(rows, L"Name"); }), 3260);
        EXPECT_EQ(errorOf([&] { rows.call({L"Delete"}); }), 3260);
    }
    EXPECT_EQ(text(rows, L"Name"), L"B");
    EXPECT_EQ(rows.integer({L"RecordCount"}), 2);
}

TEST_F(DaoTest, SelectsByCondition) {
    const auto names = [this](const std::wstring& rest) {
        return column(query(L"Select * From TCache Where " + rest + L" Order By Name"), L"Name");
    };
    makeCache({L"Zed", L"anna", L"Emil", L"\x00C4nne", L"O'Neil", L"the \"Boss\""});
    run(L"INSERT INTO TCache (PhoneNumber) VALUES ('')");
    EXPECT_EQ(names(L"Name Like \"*\""), L"anna \x00C4nne Emil O'Neil the \"Boss\" Zed ")
        << "Null is never like";
    EXPECT_EQ(names(L"Name Like \"*N*\" Or Name = 'ZED'"), L"anna \x00C4nne O'Neil Zed ");
    EXPECT_EQ(names(L"Name Like 'O''N*'"), L"O'Neil ");
    EXPECT_EQ(names(L"Name Like \"*\"\"boss\"\"\""), L"the \"Boss\" ");
    EXPECT_EQ(names(L"tcache.[NAME] = \"EMIL\""), L"Emil ");
    EXPECT_EQ(names(L"PhoneNumber Like \"100[1-3]\" And Not (Name = 'zed')"), L"anna Emil ");
    EXPECT_EQ(query(L"Select * From TCache Where PhoneNumber Like \"\"").integer({L"RecordCount"}), 1);
    EXPECT_EQ(column(query(L"Select Name From TCache Where Name Like 'z' & '*'"), L"Name"), L"Zed ");
}

TEST_F(DaoTest, RefusesWhatJetRefuses) {
    makeCache({L"Ann"});
    run(L"CREATE TABLE Employees (EmployeeId LONG)");
    const std::pair<const wchar_t*, long> kQueries[] = {
        {L"Select * From Nowhere", 3078},
        {L"Select * From TCache Where Nickname = 'x'", 3061},
        {L"Select * From TCache Where Name Like \"x\"y\" Order By Name", 3075},
        {L"Select * From TCache Where Name Like \"a[b\"", 3075},
        {L"Select * From TCache Where Name Like \"a|b\"", 3075},
        {L"Select * From TCache Where Name Like \"|Nickname|\"", 3061},
        {L"Select * From Employees Where EmployeeId = 'five'", 3464},
    };
    for (const auto& [sql, number] : kQueries) EXPECT_EQ(errorOf([&] { query(sql); }), number) << sql;
    EXPECT_EQ(errorOf([&] { run(L"Insert Into TCache (Name) Values ('x', 'y')"); }), 3346);
}

}  // namespace
}  // namespace standin::dao
