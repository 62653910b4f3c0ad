#include "automation/Bstr.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

TEST_F(ExportTest, TheFirstRunMakesTheFolderAndCopiesEveryColumn) {
    const struct {
        const wchar_t* column;
        const wchar_t* field;
        std::wstring text;
    } copied[] = {
        {L"FirstName", L"FirstName", L"Zo\x00EB"},
        {L"LastName", L"LastName", L"\x0141uk\x00E1\x010D"},
        {L"Department", L"Department", L"Sales"},
        {L"EmailAddress", L"Email1Address", L"zoe@firm.example"},
        {L"BusinessPhone", L"BusinessTelephoneNumber", L"1"},
        {L"BusinessPhone2", L"Business2TelephoneNumber", L"2"},
        {L"MobilePhone", L"MobileTelephoneNumber", L"3"},
        {L"HomePhone", L"HomeTelephoneNumber", L"4"},
        {L"PagerPhone", L"PagerNumber", L"5"},
        {L"OtherPhone", L"OtherTelephoneNumber", L"6"},
        {L"BillingInformation", L"BillingInformation", L"cost centre 12"},
    };
    std::vector<std::pair<const wchar_t*, std::wstring>> columns{{L"Categories", L"2"}};
    for (const auto& c : copied) columns.emplace_back(c.column, c.text);
    directory.add(7, columns);
    directory.add(8, {{L"LastName", L"Lobby"}, {L"BusinessPhone", L" 900 "}});
    directory.add(9, {{L"LastName", L"Bound set"}});
    directory.add(10, {{L"LastName", L"On no page"}});
    directory.place(8, 1);
    directory.place(9, 1, true);
    directory.place(7, 2);
    EXPECT_TRUE(initialize());

    const auto all = byName();
    ASSERT_EQ(all.size(), 2u);
    const auto& zoe = all.at(L"Zo\x00EB \x0141uk\x00E1\x010D");
    for (const auto& c : copied) EXPECT_EQ(zoe.field(c.field), c.text) << c.column;
    EXPECT_EQ(zoe.field(L"Categories"), L"Employees");
    EXPECT_EQ(userProperty(zoe, L"EmployeeId"), L"7");
    EXPECT_EQ(userProperty(zoe, L"CategorieId"), L"2");
    for (const auto& property : zoe.userProperties) EXPECT_EQ(property.type, 3);
    const auto& lobby = all.at(L"Lobby");
    EXPECT_EQ(lobby.field(L"Categories"), L"Phone sets");
    EXPECT_EQ(lobby.field(L"BusinessTelephoneNumber"), L"900");
    EXPECT_EQ(lobby.userProperties.size(), 1u) << "Null gives no property";

    auto& mailbox = outlook.mailbox();
    EXPECT_EQ(registry.get(HKEY_CURRENT_USER, kExportFolderKey, L"EntryID"),
              mailbox.entryId(folderCalled(L"Staff")));
    EXPECT_EQ(registry.get(HKEY_CURRENT_USER, kExportFolderKey, L"StoreID"),
              mailbox.storeId(mailbox.defaultStore().id));
    EXPECT_EQ(registry.get(HKEY_CURRENT_USER, kExportKey, L"IsNewWXDFolder"), L"1");
}

TEST_F(ExportTest, TheTraceTellsTheWay) {
    directory.fill(2);
    EXPECT_TRUE(initialize());
    EXPECT_TRUE(initialize());
    const auto lines = trace();
    size_t at = 0;
    for (const char* expected :
         {"In InitializeExportFolder", "IN GetExportFolder", "EntryId ", "StoreId ",
          "oTargetfolder Is Nothing", "Exit GetExportFolder", "Before copyToContactItem c, rst, 1",
          "Before copyToContactItem c, rst, 1", "In InitializeExportFolder", "IN GetExportFolder",
          "StoreId and StoreId <> 0", "oTargetfolder Is Not Nothing", "oTargetfolder Name Is ",
          "Exit GetExportFolder", "Before copyToContactItem c, rst, 1"}) {
        while (at < lines.size() && lines[at] != expected && lines[at].find(expected) != 0) ++at;
        EXPECT_LT(at++, lines.size()) << expected << " is missing or out of order";
    }
    EXPECT_EQ(contacts().size(), 4u) << "initialising again copies again";
}

TEST_F(ExportTest, OneRowThatFailsIsOneLineAndTheRestGoesOn) {
    directory.fill(5);
    outlook.server().faults().failMember(L"ContactItem.Save", {E_FAIL, L"The operation failed."}, 1);
    EXPECT_FALSE(initialize());
    EXPECT_EQ(contacts().size(), 4u);
    EXPECT_EQ(timesTraced("cDataConnector.copyToContactItem Error in Microsoft Outlook. "
                          "The operation failed. (-2147467259) at line 1"),
              1);
    EXPECT_EQ(timesTraced("cDataConnector.copyToContactItem"), 1);
    EXPECT_TRUE(synchronize());
    expectOneEach(5);
}

TEST_F(ExportTest, WithoutANameTheFolderIsCalledAsConfigured) {
    directory.fill(1);
    EXPECT_TRUE(initialize(L""));
    EXPECT_EQ(contacts(L"Employees").size(), 1u);
    outlook.mailbox().eraseFolder(folderCalled(L"Employees").id);
    registry.set(HKEY_CURRENT_USER, std::wstring(kClientKey) + L"\\Settings", L"zelbarExportFolder", L"Firm");
    EXPECT_TRUE(initialize(L""));
    EXPECT_EQ(contacts(L"Firm").size(), 1u);
    EXPECT_TRUE(initialize(L""));
    EXPECT_TRUE(traced("oTargetfolder Name Is Firm"));
}

// What the driver's own contact object makes of an exported contact.
TEST_F(ExportTest, ExportedContactsAreLinkedToTheDirectory) {
    directory.add(7, {{L"LastName", L"Byron"},
                      {L"BusinessPhone", L"1"},
                      {L"PagerPhone", L"2"},
                      {L"EmailAddress", L"ada@firm.example"},
                      {L"Categories", L"2"},
                      {L"AssistantID", L"9"}});
    directory.place(7, 2);
    const wchar_t* const labels[] = {L"BusinessPhoneLabel", L"BusinessPhone2Label", L"MobilePhoneLabel",
                                     L"HomePhoneLabel",     L"PagerPhoneLabel",     L"OtherPhoneLabel",
                                     L"AssistantPhoneLabel"};
    std::wstring columns, values;
    for (const std::wstring label : labels) {
        columns += (columns.empty() ? L"" : L", ") + label + L" Text(50)";
        values += (values.empty() ? L"\"My " : L", \"My ") + label + L"\"";
    }
    directory.execute(L"Create Table Default (" + columns + L")");
    directory.execute(L"Insert Into Default Values (" + values + L")");
    EXPECT_TRUE(initialize());

    Com<::Contact> found;
    const Bstr id(outlook.mailbox().entryId(contacts().at(0)));
    ASSERT_EQ(connector().GetContactByContactID(id.get(), found.put()), S_OK);
    Gateway gateway;
    const Object contact(gateway, Server::Client, found, kUnknownClass);
    EXPECT_EQ(contact.text(Member{L"employeeId"}), L"7");
    EXPECT_EQ(contact.text(Member{L"CategorieId"}), L"2");
    EXPECT_EQ(contact.text(Member{L"AssistantId"}), L"9");
    for (const wchar_t* label : labels) EXPECT_EQ(contact.text(Member{label}), std::wstring(L"My ") + label);
    // Nothing in the settings: the addresses in Outlook are not read, the directory has it.
    outlook.server().calls().reset();
    EXPECT_EQ(contact.text(Member{L"MainEmail"}), L"ada@firm.example");
    EXPECT_EQ(outlook.server().calls().invocations(L"ContactItem.Email1Address"), 0);
    const Object numbers = contact.object(Member{L"PhoneNumbers"});
    EXPECT_EQ(numbers.text(Member{L"Item"}, 1), L"My BusinessPhoneLabel: \t1");
    EXPECT_EQ(numbers.text(Member{L"Item"}, 2), L"My PagerPhoneLabel: \t2");
}

}  // namespace

}  // namespace zelbar
