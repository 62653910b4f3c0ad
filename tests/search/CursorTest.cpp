#include "automation/Bstr.h"
#include "automation/Object.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

class Cursor : public DriverTest {
  protected:
    struct Ends {
        bool bof, eof, noMatch;
        bool operator==(const Ends&) const = default;
    };

    static Ends endsOf(::ContactRecord& cursor) {
        VARIANT_BOOL bof = 0, eof = 0, noMatch = 0;
        cursor.get_BOF(&bof);
        cursor.get_EOF(&eof);
        cursor.get_NoMatch(&noMatch);
        return {bof != 0, eof != 0, noMatch != 0};
    }
    static short countOf(::ContactRecord& cursor) {
        short result = -1;
        EXPECT_EQ(cursor.get_RecordCount(&result), S_OK);
        return result;
    }
    std::vector<std::wstring> walk(::ContactRecord& cursor, long kind, const std::wstring& text) {
        std::vector<std::wstring> result;
        for (auto found = findFirst(cursor, kind, text); found && !notInPim(found.get());
             found = findNext(cursor))
            result.push_back(fullName(found.get()));
        return result;
    }
    Com<IDispatch> collect(::ContactRecord& cursor, long kind, const std::wstring& text) {
        Com<IDispatch> result;
        EXPECT_EQ(cursor.FillContactCollection(&kind, Bstr(text).get(), result.put()), S_OK);
        return result;
    }
    static long sizeOf(const Com<IDispatch>& collection) {
        Gateway gateway;
        return Object(gateway, Server::Client, collection, kUnknownClass).integer(Member{L"Count"});
    }
};

TEST_F(Cursor, FindsByNumberAndByNameWithAndWithoutWildcards) {
    writeCache({addListed(L"Ada", L"Byron", L"+44 20 1234"), addListed(L"Zoë", L"Ångström", L"+46 8 55"),
                addListed(L"Grace", L"Hopper", L"+1 202 #31"), addListed(L"Alan", L"Byrne", L"+44 20 1299")});
    const auto cursor = openCursor();
    const struct {
        long kind;
        const wchar_t* text;
        std::vector<std::wstring> names;
    } cases[] = {
        {0, L"+44 20 1234", {L"Byron, Ada"}},
        {0, L"+44 20 12*", {L"Byrne, Alan", L"Byron, Ada"}},
        {0, L"*99", {L"Byrne, Alan"}},
        {0, L"+1 202 #31", {L"Hopper, Grace"}},
        {0, L"+44 20 ????", {}},
        {0, L"44 20 1234", {}},
        {1, L"byron ada", {L"Byron, Ada"}},
        {1, L"BYR*", {L"Byrne, Alan", L"Byron, Ada"}},
        {1, L"Ångström*", {L"Ångström, Zoë"}},
        {1, L"Angstrom*", {}},
    };
    for (const auto& c : cases) EXPECT_EQ(walk(*cursor.get(), c.kind, c.text), c.names) << c.text;
}

TEST_F(Cursor, SearchWithoutResultGivesTheUnknownCaller) {
    writeCache({addListed(L"Ada", L"Byron", L"1")});
    const auto cursor = openCursor();
    const struct {
        long kind;
        const wchar_t *firstName, *number;
    } cases[] = {{0, L"", L"999"}, {1, L"999", L""}, {2, L"", L"999"}, {-1, L"", L"999"}};
    for (const auto& c : cases) {
        const auto contact = findFirst(*cursor.get(), c.kind, L"999");
        EXPECT_TRUE(notInPim(contact.get())) << c.kind;
        EXPECT_EQ(firstName(contact.get()), c.firstName);
        EXPECT_EQ(mainNumber(contact.get()), c.number);
        EXPECT_FALSE(findNext(*cursor.get()));
        if (c.kind == 0 || c.kind == 1) {
            EXPECT_EQ(endsOf(*cursor.get()), (Ends{true, true, true}));
            EXPECT_EQ(countOf(*cursor.get()), 0);
        }
    }
}

TEST_F(Cursor, DeliversAContactWithSeveralNumbersOnce) {
    const TestRow ada = addListed(L"Ada", L"Byron", L"1");
    TestRow second = ada, third = ada;
    second.number = L"2";
    third.number = L"3";
    writeCache({ada, second, third, addListed(L"Ben", L"Carter", L"4")});
    const auto cursor = openCursor();
    EXPECT_EQ(walk(*cursor.get(), 0, L"*"), (std::vector<std::wstring>{L"Byron, Ada", L"Carter, Ben"}));
    EXPECT_EQ(countOf(*cursor.get()), 4);
    EXPECT_TRUE(endsOf(*cursor.get()).eof);
    EXPECT_EQ(fullName(findPrevious(*cursor.get()).get()), L"Carter, Ben");
    EXPECT_EQ(fullName(findPrevious(*cursor.get()).get()), L"Byron, Ada");
    EXPECT_FALSE(findPrevious(*cursor.get()));
    EXPECT_TRUE(endsOf(*cursor.get()).bof);
}

TEST_F(Cursor, MovesToTheEndsAndReadsTheCurrentContact) {
    writeCache({addListed(L"Ada", L"Byron", L"1"), addListed(L"Ben", L"Carter", L"2"),
                addListed(L"Cy", L"Dole", L"3")});
    const auto cursor = openCursor();
    const auto current = [&] {
        Com<::Contact> result;
        EXPECT_EQ(cursor->get_Contact(result.put()), S_OK);
        return fullName(result.get());
    };
    findFirst(*cursor.get(), 0, L"*");
    EXPECT_EQ(cursor->MoveLast(), S_OK);
    EXPECT_EQ(current(), L"Dole, Cy");
    EXPECT_EQ(fullName(findPrevious(*cursor.get()).get()), L"Carter, Ben");
    EXPECT_EQ(current(), L"Carter, Ben");
    const long queries = dao.server().calls().invocations(L"Database.OpenRecordset");
    EXPECT_EQ(cursor->MoveFirst(), S_OK);
    EXPECT_EQ(current(), L"Byron, Ada");
    EXPECT_EQ(dao.server().calls().invocations(L"Database.OpenRecordset"), queries + 1);
}

TEST_F(Cursor, AnswersNeutrallyBeforeAnySearchAndOnAnEmptyResult) {
    writeCache({});
    const auto cursor = openCursor();
    EXPECT_EQ(endsOf(*cursor.get()), (Ends{true, true, true}));
    EXPECT_EQ(countOf(*cursor.get()), 0);
    EXPECT_FALSE(findNext(*cursor.get()));
    EXPECT_EQ(cursor->MoveFirst(), S_OK);
    EXPECT_EQ(cursor->MoveLast(), S_OK);
    Com<::Contact> contact;
    EXPECT_EQ(cursor->get_Contact(contact.put()), S_OK);
    EXPECT_TRUE(notInPim(contact.get()));
    EXPECT_EQ(cursor->MoveFirst(), S_OK);
    EXPECT_EQ(cursor->MoveLast(), S_OK);
    EXPECT_TRUE(traced("Error (MoveFirst): No current record."));
}

TEST_F(Cursor, CollectsAtMostTwentyFiveContactsThatCanBeDialled) {
    std::vector<TestRow> rows;
    for (int i = 10; i < 40; ++i)
        rows.push_back(addListed(L"N" + std::to_wstring(i), L"Many", L"7" + std::to_wstring(i)));
    const auto faxOnly =
        addContact({{L"LastName", L"Many"}, {L"FirstName", L"N20b"}, {L"TelexNumber", L"79"}});
    rows.push_back({L"Many N20b", L"79", outlook.mailbox().entryId(faxOnly)});
    const auto pagerFirst = addContact({{L"LastName", L"Aaa"}, {L"PagerNumber", L"81"}});
    rows.push_back({L"Aaa", L"81", outlook.mailbox().entryId(pagerFirst)});
    rows.push_back({L"Bbb", L"82", rows.front().entryId});
    writeCache(rows);
    const auto cursor = openCursor();

    EXPECT_EQ(sizeOf(collect(*cursor.get(), 0, L"7*")), 25);
    EXPECT_EQ(registry.get(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess"), L"0");
    // A unified search looks at business numbers only, so the first match has nothing to dial.
    EXPECT_EQ(sizeOf(collect(*cursor.get(), 0, L"8*")), 0);
    // An unknown number can be dialled.
    EXPECT_EQ(sizeOf(collect(*cursor.get(), 0, L"000")), 1);
    EXPECT_EQ(sizeOf(collect(*cursor.get(), 1, L"Nobody")), 0);
    EXPECT_TRUE(traced("No of contacts found : 25"));
    EXPECT_TRUE(traced("collection of contacts not found"));
}

TEST_F(Cursor, BadSearchTextsAreNotFoundAndLoseNothing) {
    writeCache({addListed(L"Ada", L"Byron", L"1"), addListed(L"Ben", L"O\"Brien", L"2")});
    const auto cursor = openCursor();
    const std::wstring texts[] = {L"",          std::wstring(40000, L'7'),
                                  L"\"",        L"x\" Or \"a\"=\"a",
                                  L"'",         L"[",
                                  L"]",         L"a|b",
                                  L"|Name|",    std::wstring(L"1\0*", 3),
                                  L"\xD800",    L"\xDC00\xD83D*",
                                  L"[!1]",      L"%",
                                  L"1;DROP x;", L"\r\n\t"};
    for (const auto& text : texts)
        for (const long kind : {0L, 1L})
            EXPECT_TRUE(notInPim(findFirst(*cursor.get(), kind, text).get())) << text.size() << ' ' << kind;
    EXPECT_EQ(walk(*cursor.get(), 1, L"O\"Brien*"), std::vector<std::wstring>{L"O\"Brien, Ben"});
    EXPECT_EQ(cacheRows(), 2);
    long kind = 0;
    EXPECT_EQ(cursor->FindFirst(&kind, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(cursor->FindFirst(nullptr, nullptr, Com<::Contact>().put()), E_POINTER);
    EXPECT_EQ(cursor->FindNext(nullptr), E_POINTER);
}

TEST_F(Cursor, TracesACallAsSupportKnowsIt) {
    writeCache({addListed(L"Ada", L"Byron", L"1")});
    const auto cursor = openCursor();
    findFirst(*cursor.get(), 0, L"1");
    findNext(*cursor.get());
    for (const char* line :
         {"=>FindFisrt() Phone=1", "TimerFind()", "Found: Byron Ada", "GetContactFromID() for TimerFind - ",
          "GetContactFromID: OK", "Contact: Byron, Ada found in Outlook...",
          "Contact.SetValues(Item as Object)", "Returning: 'Byron, Ada'.", "Found 1 items...", "=>FindNext()",
          "  FindNext() End Of File"})
        EXPECT_TRUE(traced(line)) << line;
}

}  // namespace

}  // namespace zelbar
