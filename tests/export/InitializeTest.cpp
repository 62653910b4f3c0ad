#include "tests/client/ProgramRun.h"
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
    const auto& zoe = all.at(L"\x0141uk\x00E1\x010D");
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
    EXPECT_TRUE(initialize());
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

// `pimcall export`, with this driver.
TEST_F(ExportTest, TheCommandExportsAndSaysWhatCameOfIt) {
    using pimcall::ExitCode;
    directory.fill(2);
    const std::wstring file = folder.file(L"wxd.mdb");
    const struct {
        std::vector<std::wstring> words;
        ExitCode exitCode;
        const wchar_t* out;
    } cases[] = {
        {{L"export", L"all", L"--database", file}, ExitCode::Usage, L""},
        {{L"export", L"sync"}, ExitCode::Usage, L""},
        {{L"export", L"sync", L"--database", file}, ExitCode::Failed, L""},
        {{L"export", L"init", L"--database", file, L"--folder", L"Staff"},
         ExitCode::Found,
         L"The employees are in the export folder.\n"},
        {{L"export", L"sync", L"--database", file, L"--json"}, ExitCode::Found, L"{\"complete\":true}\n"},
    };
    for (const auto& c : cases) {
        const pimcall::ProgramRun run(c.words, [this] { return pimcall::Driver(&connector()); });
        EXPECT_EQ(run.exitCode, c.exitCode) << c.words.size();
        EXPECT_EQ(run.out, c.out);
        EXPECT_EQ(run.error.empty(), run.exitCode == ExitCode::Found);
    }
    expectOneEach(2);
}

}  // namespace

}  // namespace zelbar
