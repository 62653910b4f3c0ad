#include <tuple>

#include "standin/dao/DaoError.h"
#include "standin/dao/Like.h"
#include "tests/standin_dao/Client.h"

namespace client {
namespace {

TEST(Like, MatchesAsJetDoes) {
    constexpr std::tuple<const wchar_t*, const wchar_t*, bool> kCases[] = {
        {L"", L"a", false},          {L"abc", L"abc ", false},     {L"#", L"\x0667", false},
        {L"##", L"09", true},        {L"[*][?][[]", L"*?[", true}, {L"a]b", L"a]b", true},
        {L"[abc]", L"B", true},      {L"[!abc]", L"d", true},      {L"[!abc]", L"A", false},
        {L"[!]", L"!", true},        {L"[a-c]x", L"Bx", true},     {L"[A-E]", L"\x00CA", false},
        {L"[A-F]", L"\x00CA", true}, {L"_", L"x", false},          {L"M\x00DCLLER", L"m\x00FCller", true},
    };
    for (const auto& [pattern, text, matches] : kCases)
        EXPECT_EQ(standin::dao::LikePattern(pattern).matches(text), matches) << pattern << " | " << text;
    for (const wchar_t* pattern : {L"[", L"a[bc", L"[!", L"[z-a]"})
        EXPECT_THROW(standin::dao::LikePattern{pattern}, standin::dao::DaoError) << pattern;
}

class SqlTest : public DaoTest {
  protected:
    std::wstring names(const std::wstring& rest) {
        return column(query(L"Select * From TCache Where " + rest + L" Order By Name"), L"Name");
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
    EXPECT_EQ(query(L"Select * From TCache Where PhoneNumber Like \"\"").integer({L"RecordCount"}), 1);
    EXPECT_EQ(column(query(L"Select Name From TCache Where Name Like 'z' & '*'"), L"Name"), L"Zed ");
}

TEST_F(SqlTest, RefusesWhatJetRefuses) {
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
}  // namespace client
