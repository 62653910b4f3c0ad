#include "support/OutlookGuard.h"
#include "support/TelephoneNumbers.h"
#include "tests/filler/Fixture.h"

/// Reading through Outlook's table: the same rows as item by item, whatever the table leaves out.
namespace {

using filler::ReadWay;
constexpr wchar_t kSecurity[] = L"Office\\16.0\\Outlook\\Security";

class TableTest : public FillerTest {
  protected:
    TableTest() {
        outlook.server().setOption(L"Version", L"16.0.17328");
        way_ = ReadWay::Table;
    }
    /// The cache's rows after a first run in that way.
    Texts rowsBy(ReadWay way) {
        way_ = way;
        DeleteFileW(path_.c_str());
        EXPECT_EQ(fill(), L"");
        return content();
    }
    /// Contacts with every property, and all that a table cannot tell of.
    void addAllKinds() {
        standin::outlook::Fields all{{L"LastName", L"All"}, {L"FirstName", L"Ann"}};
        for (const auto& telephone : zelbar::kTelephoneProperties)
            all[telephone.member.name] = std::wstring(L"+49 89 ") + telephone.labelKey;
        const std::wstring cut(300, L'x');
        const standin::outlook::Fields others[] = {
            all,
            {{L"LastName", cut}, {L"BusinessTelephoneNumber", L"1"}},
            {{L"LastName", cut.substr(0, 200)}, {L"FirstName", cut}, {L"TelexNumber", L"2"}},
            {{L"LastName", L"Cut"}, {L"PagerNumber", std::wstring(255, L'7')}, {L"ISDNNumber", L"3"}},
            {{L"CompanyName", L"Engines"}, {L"MobileTelephoneNumber", L" 4 "}, {L"PagerNumber", L"4"}},
            {{L"FileAs", L"Filed"}, {L"CallbackTelephoneNumber", L"5"}},
            {{L"LastName", L"Custom"}, {L"MessageClass", L"IPM.Contact.Crm"}, {L"ISDNNumber", L"6"}},
            {{L"LastName", L"Silent"}, {L"Email1Address", L"silent@example.com"}},
            {{L"BusinessTelephoneNumber", L"*#?\"|\x4e2d"}}};
        for (const auto& fields : others) mailbox.addContact(defaultContacts.id, fields);
        mailbox.addDistributionList(defaultContacts.id, L"Team");
    }
    std::size_t itemsOpened() {
        return static_cast<std::size_t>(outlook.server().calls().invocations(L"GetItemFromID"));
    }
};

TEST_F(TableTest, GivesTheSameRowsAsItemByItem) {
    addAllKinds();
    const FolderRecord other = addFolder(mailbox.addStore(L"Archive"), L"Old");
    addPerson(other, L"Old", L"8");
    chooseFolder(1, defaultContacts);
    chooseFolder(2, other);
    const Texts items = rowsBy(ReadWay::Items);
    for (const wchar_t* missing : {L"", L"error"})
        for (const wchar_t* ids : {L"", L"short"}) {
            outlook.server().setOption(L"TableMissing", missing);
            outlook.server().setOption(L"TableIds", ids);
            outlook.server().calls().reset();
            EXPECT_EQ(rowsBy(ReadWay::Table), items) << missing << ids;
            EXPECT_EQ(observer_.notes, Texts{});
            EXPECT_EQ(itemsOpened(), 5u) << "one of each folder, and three with texts that may be cut";
            EXPECT_EQ(result_.contactCount, 10);
        }
}

TEST_F(TableTest, AFolderThatLeavesADoubtIsReadItemByItem) {
    addAllKinds();
    const Texts items = rowsBy(ReadWay::Items);
    const std::pair<std::function<void()>, const wchar_t*> cases[] = {
        {[&] { outlook.server().setOption(L"Version", L"11.0"); }, L"GetTable"},
        {[&] { outlook.server().setOption(L"Guard", L"deny"); }, L"The operation failed"},
        {[&] { outlook.server().setOption(L"TableIds", L"short only"); }, L"identifiers of its own"},
        {[&] {
             faults().failMember(L"GetArray", {E_FAIL, L"Broken table."}, 1);
         },
         L"Broken table."},
    };
    for (const auto& [prepare, reason] : cases) {
        prepare();
        EXPECT_EQ(rowsBy(ReadWay::Table), items);
        ASSERT_EQ(observer_.notes.size(), 1u) << reason;
        EXPECT_NE(observer_.notes[0].find(reason), std::wstring::npos) << observer_.notes[0];
        for (const wchar_t* option : {L"Guard", L"TableIds"}) outlook.server().setOption(option, L"");
        outlook.server().setOption(L"Version", L"16.0");
    }
}

TEST_F(TableTest, NoRowIsLostWhenTheFolderChangesMeanwhile) {
    constexpr std::size_t kPeople = 600;  // more than one call gives
    std::vector<ItemRecord> people;
    standin::outlook::Transaction together(mailbox.database());
    for (std::size_t i = 0; i < kPeople; ++i)
        people.push_back(addPerson(defaultContacts, L"P", std::to_wstring(i).c_str()));
    together.commit();
    ASSERT_EQ(fill(), L"");
    ASSERT_EQ(FillerTest::people().size(), kPeople);
    // One goes and one comes with each block of rows: the count stays, and a row is passed over each time.
    std::size_t changes = 0;
    observer_.onProgress = [&](const std::wstring& what) {
        if (what == kWriting || changes == 5) return;
        mailbox.eraseItem(people[changes++].id);
        addPerson(defaultContacts, L"New", L"9");
    };
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(result_.change.added, 5);
    EXPECT_EQ(result_.change.removed, 5);
    // Where it never comes to rest, item by item.
    changes = 10;
    observer_.onProgress = [&](const std::wstring& what) {
        if (what != kWriting && changes < 40) mailbox.eraseItem(people[changes++].id);
    };
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(observer_.notes.size(), 1u);
    observer_.onProgress = {};
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(FillerTest::people().size(), kPeople - 30);
}

TEST_F(TableTest, AnItemThatCannotBeReadKeepsItsRowsAndOneThatIsGoneDoesNot) {
    const ItemRecord cut = mailbox.addContact(
        defaultContacts.id, {{L"LastName", std::wstring(200, L'x')}, {L"BusinessTelephoneNumber", L"1"}});
    addPerson(defaultContacts, L"Byron", L"2");
    const Texts before = rowsBy(ReadWay::Table);
    faults().failMember(L"TelexNumber", {E_FAIL, L"Broken item."}, 1);
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(result_.unreadCount, 1);
    EXPECT_EQ(content(), before);
    faults().failMember(L"TelexNumber", {static_cast<HRESULT>(0x8004010A), L"Gone."}, 1);
    ASSERT_EQ(fill(), L"");
    EXPECT_TRUE(result_.isComplete());
    EXPECT_EQ(FillerTest::people(), Texts{L"Byron|2"});
}

TEST_F(TableTest, IsTheDefaultOnlyWhereTheGuardCannotAsk) {
    const struct {
        DWORD policy, prompt, guard;
        bool isTable;
        const wchar_t* reason;
    } cases[] = {
        {0, 0, 0, false, L"no active antivirus"},
        {0, 0, 1, false, L"ObjectModelGuard is 1"},
        {0, 0, 2, true, L"ObjectModelGuard is 2"},
        {3, 2, 1, true, L"PromptOOMAddressInformationAccess is 2"},
        {3, 0, 2, false, L"PromptOOMAddressInformationAccess is 0"},
        {3, 3, 2, true, L"ObjectModelGuard is 2"},
        {2, 2, 2, false, L"AdminSecurityMode is 2"},
    };
    way_ = {};
    addPerson(defaultContacts, L"Byron", L"1");
    const auto set = [&](HKEY root, const std::wstring& key, const wchar_t* name, DWORD value) {
        registry.set(root, key + kSecurity, name, REG_DWORD,
                     std::string(reinterpret_cast<const char*>(&value), sizeof value));
    };
    const std::wstring policies = L"Software\\Policies\\Microsoft\\", own = L"SOFTWARE\\Microsoft\\";
    for (const auto& c : cases) {
        set(HKEY_CURRENT_USER, policies, L"AdminSecurityMode", c.policy);
        set(HKEY_CURRENT_USER, policies, L"PromptOOMAddressInformationAccess", c.prompt);
        set(HKEY_LOCAL_MACHINE, own, L"ObjectModelGuard", c.guard);
        ASSERT_EQ(fill(), L"");
        const std::wstring said = filler::describe(result_);
        EXPECT_EQ(said.find(L"through its tables") != std::wstring::npos, c.isTable) << said;
        EXPECT_NE(said.find(c.reason), std::wstring::npos) << said;
    }
}

}  // namespace
