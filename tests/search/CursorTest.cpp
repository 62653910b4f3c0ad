#include "tests/search/SearchTest.h"

namespace zelbar {

namespace {

using namespace std::string_literals;

class Cursor : public SearchTest {
  protected:
    /// "B" for BOF, "E" for EOF, "N" for no match, and the count of rows.
    std::string state() {
        const auto flag = [this](const wchar_t* member, const char* letter) {
            return std::string(cursor.boolean({member}) ? letter : "");
        };
        return flag(L"BOF", "B") + flag(L"EOF", "E") + flag(L"NoMatch", "N") +
               std::to_string(cursor.integer({L"RecordCount"}));
    }
    std::wstring walk(long kind, const std::wstring& text) {
        std::wstring result;
        for (first(kind, text); found && !notInPim(found); next()) result += firstName(found) + L" ";
        return result;
    }
};

TEST_F(Cursor, FindsByNumberAndByNameWithAndWithoutWildcards) {
    open({addListed(L"Ada", L"Byron", L"+44 20 1234"), addListed(L"Zoë", L"Ångström", L"+46 8 55"),
          addListed(L"Grace", L"Hopper", L"+1 202 #31"), addListed(L"Alan", L"Byrne", L"+44 20 1299"),
          addListed(L"Ben", L"O\"Brien", L"2|3")});
    const std::tuple<long, const wchar_t*, const wchar_t*> hits[] = {
        {0, L"+44 20 1234", L"Ada "}, {0, L"+44 20 12*", L"Alan Ada "},
        {0, L"*99", L"Alan "},        {0, L"+1 202 #31", L"Grace "},
        {0, L"2|3", L"Ben "},         {1, L"byron ada", L"Ada "},
        {1, L"BYR*", L"Alan Ada "},   {1, L"Ångström*", L"Zoë "},
        {1, L"O\"Brien*", L"Ben "}};
    for (const auto& [kind, text, names] : hits) EXPECT_EQ(walk(kind, text), names) << text;
    // Texts that are no names and no numbers find nothing and cost nothing.
    for (const long kind : {0, 1, 2})
        for (const std::wstring& text :
             {L"+44 20 ????"s, L"44 20 1234"s, L"Angstrom*"s, L""s, std::wstring(40000, L'7'),
              L"x\" Or \"a\"=\"a"s, L"|PhoneNumber|"s, L"|Name|"s, L"["s, L"1\0*"s, L"\xDC00\xD83D*"s})
            EXPECT_EQ(walk(kind, text), L"") << text.c_str();
    EXPECT_EQ(cacheRows(), 5);
}

TEST_F(Cursor, SearchWithoutResultGivesTheUnknownCaller) {
    open({addListed(L"Ada", L"Byron", L"1")});
    EXPECT_EQ(state(), "BEN0") << "before any search";
    for (const long kind : {0, 1, 2}) {
        EXPECT_TRUE(notInPim(first(kind, L"999"))) << kind;
        EXPECT_EQ(firstName(found), kind == 1 ? L"999" : L"");
        EXPECT_EQ(found.text({L"MainPhoneNumber"}), kind == 1 ? L"" : L"999");
        EXPECT_FALSE(next());
        EXPECT_EQ(state(), kind < 2 ? "BEN0" : "BN0");
    }
    first(0, L"999");
    cursor.call({L"MoveFirst"});
    cursor.call({L"MoveLast"});
    EXPECT_TRUE(traced("Error (MoveFirst): No current record."));
}

TEST_F(Cursor, WalksTheContactsBothWaysEachOnce) {
    const TestRow ada = addListed(L"Ada", L"Byron", L"1");
    open({ada,
          {ada.name, L"2", ada.entryId},
          {ada.name, L"3", ada.entryId},
          addListed(L"Ben", L"Carter", L"4"),
          addListed(L"Cy", L"Dole", L"5")});
    EXPECT_EQ(walk(0, L"*"), L"Ada Ben Cy ");
    EXPECT_EQ(state(), "E5");
    for (const char* line :
         {"=>FindFisrt() Phone=*", "TimerFind()", "Found: Byron Ada", "GetContactFromID() for TimerFind - ",
          "GetContactFromID: OK", "Contact: Byron, Ada found in Outlook...",
          "Contact.SetValues(Item as Object)", "Returning: 'Byron, Ada'.", "Found 5 items...", "=>FindNext()",
          "  FindNext() End Of File"})
        EXPECT_TRUE(traced(line)) << line;
    EXPECT_EQ(fullName(previous()), L"Dole, Cy");
    EXPECT_EQ(fullName(previous()), L"Carter, Ben");
    EXPECT_EQ(fullName(current()), L"Carter, Ben");
    EXPECT_EQ(fullName(previous()), L"Byron, Ada");
    EXPECT_FALSE(previous());
    EXPECT_EQ(state(), "B5");
    cursor.call({L"MoveLast"});
    EXPECT_EQ(fullName(current()), L"Dole, Cy");
    const long queries = dao.server().calls().invocations(L"Database.OpenRecordset");
    cursor.call({L"MoveFirst"});
    EXPECT_EQ(fullName(current()), L"Byron, Ada");
    EXPECT_EQ(dao.server().calls().invocations(L"Database.OpenRecordset"), queries + 1) << "asked anew";
}

TEST_F(Cursor, RowsWithoutANameBringNoContactASecondTime) {
    const TestRow ada = addListed(L"Ada", L"Byron", L"089 12"), ben = addListed(L"Ben", L"Carter", L"089 13");
    open(
        {ada, {L"", L"08912", ada.entryId}, {L"", L"08913", ben.entryId}, {L"", L"+4989", ada.entryId}, ben});
    EXPECT_EQ(walk(0, L"*"), L"Ada Ben ");
    EXPECT_EQ(state(), "E5");
    EXPECT_EQ(fullName(previous()), L"Carter, Ben");
    EXPECT_EQ(fullName(previous()), L"Byron, Ada");
    EXPECT_EQ(fullName(next()), L"Carter, Ben") << "after a turn";
    EXPECT_FALSE(next());
    EXPECT_EQ(walk(1, L"*"), L"Ada Ben ");
    EXPECT_EQ(state(), "E2") << "no search by name sees them";
}

TEST_F(Cursor, CollectsAtMostTwentyFiveContactsThatCanBeDialled) {
    std::vector<TestRow> rows;
    for (int i = 10; i < 40; ++i)
        rows.push_back(addListed(L"N" + std::to_wstring(i), L"Many", L"7" + std::to_wstring(i)));
    const auto unlisted = [&](const wchar_t* name, const wchar_t* property, const wchar_t* number) {
        const auto item = addContact({{L"LastName", name}, {property, number}});
        rows.push_back({name, number, mailbox.entryId(item)});
    };
    unlisted(L"Many N20b", L"TelexNumber", L"79");
    unlisted(L"Aaa", L"PagerNumber", L"81");
    rows.push_back({L"Bbb", L"82", rows.front().entryId});
    rows.push_back({L"Bbb", L"91", rows.front().entryId});
    unlisted(L"Ccc", L"TelexNumber", L"92");
    open(rows);
    EXPECT_EQ(collect(0, L"7*").size(), 25u);
    EXPECT_EQ(registry.get(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess"), L"0");
    EXPECT_EQ(collect(0, L"9*").size(), 1u) << "one has nothing to dial";
    // A unified search looks at business numbers only, so the first match has nothing to dial.
    EXPECT_EQ(collect(0, L"8*").size(), 0u);
    EXPECT_EQ(collect(0, L"000").size(), 1u) << "an unknown number can be dialled";
    EXPECT_EQ(collect(1, L"Nobody").size(), 0u);
    EXPECT_TRUE(traced("No of contacts found : 25"));
    EXPECT_TRUE(traced("collection of contacts not found"));
}

}  // namespace

}  // namespace zelbar
