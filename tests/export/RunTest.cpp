#include "export/CategoryList.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

TEST_F(ExportTest, TheFirstRunMakesTheFolderAndCopiesEveryColumn) {
    const std::pair<const wchar_t*, const wchar_t*> copied[] = {
        {L"FirstName", L"FirstName"},
        {L"LastName", L"LastName"},
        {L"Department", L"Department"},
        {L"EmailAddress", L"Email1Address"},
        {L"BusinessPhone", L"BusinessTelephoneNumber"},
        {L"BusinessPhone2", L"Business2TelephoneNumber"},
        {L"MobilePhone", L"MobileTelephoneNumber"},
        {L"HomePhone", L"HomeTelephoneNumber"},
        {L"PagerPhone", L"PagerNumber"},
        {L"OtherPhone", L"OtherTelephoneNumber"},
        {L"BillingInformation", L"BillingInformation"}};
    std::vector<std::pair<std::wstring, std::wstring>> columns{{L"Categories", L"2"}};
    for (const auto& [column, field] : copied)
        columns.emplace_back(column, std::wstring(L"\x0141 ") + column);
    add(7, 2, columns);
    add(8, 1, {{L"LastName", L"Lobby"}, {L"BusinessPhone", L" 900 "}});
    add(9, 1, {{L"LastName", L"Bound set"}});
    add(10, 3, {{L"LastName", L"On another page"}});
    sql({L"Update BLFPagesContents Set BindToEmployee = -1 Where EmployeeId = 9"});
    EXPECT_TRUE(initialize());

    const auto all = contacts();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].field(L"Categories"), L"Phone sets");
    EXPECT_EQ(all[0].field(L"BusinessTelephoneNumber"), L"900");
    EXPECT_EQ(all[0].userProperties.size(), 1u) << "Null gives no property";
    for (const auto& [column, field] : copied)
        EXPECT_EQ(all[1].field(field), std::wstring(L"\x0141 ") + column);
    EXPECT_EQ(all[1].field(L"Categories"), L"Employees");
    EXPECT_EQ(userProperty(all[1], L"EmployeeId"), L"7");
    EXPECT_EQ(userProperty(all[1], L"CategorieId"), L"2");
    for (const auto& property : all[1].userProperties) EXPECT_EQ(property.type, 3);
}

TEST_F(ExportTest, WritesOnlyWhatDiffers) {
    fill(5);
    add(7, 1);
    sql({L"Insert Into BLFPagesContents Values (1, 1, 0)"});
    EXPECT_TRUE(initialize());
    outlook.server().calls().reset();
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 1, 2, 3, 4, 5, 7}));
    sql({L"Delete From BLFPagesContents Where EmployeeId = 1 And BLFpageId = 2",
         L"Update Employees Set BusinessPhone = \"99\", Categories = 2 Where EmployeeId = 2",
         L"Update Employees Set FirstName = Null Where EmployeeId = 3",
         L"Update BLFPagesContents Set BLFpageId = 1 Where EmployeeId = 3",
         L"Delete From Employees Where EmployeeId = 4",
         L"Delete From BLFPagesContents Where EmployeeId = 5"});
    add(6, 1, {{L"LastName", L"New"}});
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(outlook.server().calls().invocations(L"ContactItem.Save"), 3);
    EXPECT_EQ(employeeIds(), (Ids{1, 2, 3, 6, 7}));
    const auto all = contacts();
    EXPECT_EQ(all.at(1).field(L"Categories"), L"Phone sets");
    EXPECT_EQ(all.at(2).field(L"BusinessTelephoneNumber"), L"99");
    EXPECT_EQ(userProperty(all.at(2), L"CategorieId"), L"2");
    EXPECT_EQ(all.at(3).field(L"FirstName"), L"");
    EXPECT_EQ(all.at(3).field(L"Categories"), L"Phone sets");
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder not found: [employeeId] = 4"));
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder remove contacts: 5"));
}

TEST_F(ExportTest, LeavesAloneWhatIsNotItsOwn) {
    fill(2);
    EXPECT_TRUE(initialize());
    const auto staff = folderCalled(L"Staff").id;
    mailbox.addDistributionList(staff, L"Team");
    const std::pair<long, const wchar_t*> numbers[] = {
        {1, L"77"}, {3, L"1.5"}, {3, L"0"}, {3, L"442079460123"}};
    for (const auto& [type, number] : numbers) {
        auto contact = mailbox.addContact(staff, {{L"LastName", L"A user's own"}});
        mailbox.setUserProperty(contact, L"EmployeeId", type, number);
    }
    auto edited = contacts().at(0);
    edited.fields[L"Categories"] = L"Friends; Employees";
    edited.fields[L"JobTitle"] = edited.fields[L"MobileTelephoneNumber"] = L"A user's own";
    mailbox.save(edited);
    sql({L"Delete From Employees Where EmployeeId = 2"});
    add(3, 2);
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(contacts().size(), 7u);
    const auto kept = contacts().at(0);
    EXPECT_EQ(kept.field(L"Categories"), L"Friends; Employees");
    EXPECT_EQ(kept.field(L"JobTitle"), L"A user's own");
    EXPECT_EQ(kept.field(L"MobileTelephoneNumber"), L"") << "the directory decides";

    for (const auto& [before, after] : {std::pair(L"Friends,Sets; Golf", L"Friends, Golf, Staff"),
                                        {L" ; ,", L"Staff"},
                                        {L"Staff, Sets", L"Staff"},
                                        {L"Staffroom", L"Staffroom, Staff"}})
        EXPECT_EQ(refiled(before, L"Staff", L"Sets"), after);
    EXPECT_EQ(refiled(L"Same", L"Same", L"Same"), L"Same") << "a language may have one word for both";
}

TEST_F(ExportTest, AColumnThatTheDirectoryDoesNotHaveIsTheUsers) {
    fill(1);
    EXPECT_TRUE(initialize());
    auto edited = contacts().at(0);
    edited.fields[L"MobileTelephoneNumber"] = L"0171";
    mailbox.save(edited);
    sql({L"Drop Table Employees",
         L"Create Table Employees (EmployeeId Long, LastName Text(50), BusinessPhone Long)",
         L"Insert Into Employees Values (1, Null, 501)"});
    EXPECT_TRUE(synchronize());
    const auto kept = contacts().at(0);
    EXPECT_EQ(kept.field(L"BusinessTelephoneNumber"), L"501");
    EXPECT_EQ(kept.field(L"MobileTelephoneNumber"), L"0171");
}

TEST_F(ExportTest, AddressesAreLeftAloneWhereTheUserOrTheSettingForbids) {
    fill(2);
    const struct {
        const wchar_t *forbidden, *guard, *inDirectory, *inOutlook;
        long calls;
    } cases[] = {{L"1", L"", L"a", L"", 0},
                 {L"0", L"", L"a", L"a", 4},
                 {L"0", L"deny", L"b", L"a", 1},
                 {L"0", L"", L"b", L"b", 4}};
    for (const auto& c : cases) {
        const std::wstring department = std::wstring(c.guard) + c.inDirectory;
        sql({L"Update Employees Set EmailAddress = \"" + std::wstring(c.inDirectory) +
             L"\", Department = \"" + department + L"\""});
        registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", c.forbidden);
        outlook.server().setOption(L"Guard", c.guard);
        outlook.server().calls().reset();
        EXPECT_TRUE((&c != cases || initialize()) && synchronize());
        EXPECT_EQ(outlook.server().calls().invocations(L"ContactItem.Email1Address"), c.calls);
        for (const auto& item : contacts()) {
            EXPECT_EQ(item.field(L"Email1Address"), c.inOutlook);
            EXPECT_EQ(item.field(L"Department"), department);
        }
    }
}

}  // namespace

}  // namespace zelbar
