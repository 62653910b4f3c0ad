#include <sstream>

#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

TEST_P(ExportTest, TheFirstRunMakesTheFolderAndCopiesEveryColumn) {
    std::vector<std::pair<std::wstring, std::wstring>> columns{{L"Categories", L"2"}};
    for (const wchar_t* column : kColumns) columns.emplace_back(column, std::wstring(L"\x0141 ") + column);
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
    std::wistringstream fields(
        L"FirstName LastName Department Email1Address BusinessTelephoneNumber Business2TelephoneNumber "
        L"MobileTelephoneNumber HomeTelephoneNumber PagerNumber OtherTelephoneNumber BillingInformation");
    std::wstring field;
    for (const wchar_t* column : kColumns)
        EXPECT_EQ((fields >> field, all[1].field(field)), std::wstring(L"\x0141 ") + column);
    EXPECT_EQ(all[1].field(L"Categories"), L"Employees");
    EXPECT_EQ(userProperty(all[1], L"EmployeeId"), L"7");
    EXPECT_EQ(userProperty(all[1], L"CategorieId"), L"2");
    for (const auto& property : all[1].userProperties) EXPECT_EQ(property.type, 3);
}

TEST_P(ExportTest, WritesOnlyWhatDiffers) {
    fill(5);
    add(7, 1);
    sql({L"Insert Into BLFPagesContents Values (1, 1, 0)"});
    EXPECT_TRUE(initialize());
    outlook.server().calls().reset();
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds(), (Ids{1, 1, 2, 3, 4, 5, 7}));
    auto edited = contacts().at(4);
    edited.fields[L"Categories"] = L"Friends; Employees,Golf";
    mailbox.save(edited);
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
    EXPECT_EQ(all.at(3).field(L"Categories"), L"Friends, Golf, Phone sets");
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder not found: [employeeId] = 4"));
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder remove contacts: 5"));
    sql({L"Delete From Employees"});
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(employeeIds().size(), 5u) << "an empty directory removes nobody";
}

TEST_P(ExportTest, LeavesAloneWhatIsNotItsOwn) {
    fill(2);
    EXPECT_TRUE(initialize());
    auto edited = contacts().at(0);
    mailbox.addDistributionList(edited.folder, L"Team");
    const std::pair<long, const wchar_t*> numbers[] = {
        {1, L"77"}, {3, L"1.5"}, {3, L"0"}, {3, L"442079460123"}};
    for (const auto& [type, number] : numbers) {
        auto contact = mailbox.addContact(edited.folder, {{L"LastName", L"A user's own"}});
        mailbox.setUserProperty(contact, L"EmployeeId", type, number);
    }
    edited.fields[L"Categories"] = L"Friends; Employees";
    edited.fields[L"JobTitle"] = edited.fields[L"MobileTelephoneNumber"] = L"A user's own";
    mailbox.save(edited);
    sql({L"Delete From Employees Where EmployeeId = 2"});
    add(3, 2);
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(contacts().size(), 7u);
    EXPECT_EQ(contacts().at(0).field(L"MobileTelephoneNumber"), L"") << "the directory decides";

    mailbox.save(edited);
    sql({L"Drop Table Employees",
         L"Create Table Employees (EmployeeId Long, LastName Text(50), BusinessPhone Long)",
         L"Insert Into Employees Values (1, Null, 501)"});
    EXPECT_TRUE(synchronize());
    const auto kept = contacts().at(0);
    EXPECT_EQ(kept.field(L"BusinessTelephoneNumber"), L"501");
    for (const wchar_t* field : {L"Categories", L"JobTitle", L"MobileTelephoneNumber"})
        EXPECT_EQ(kept.field(field), edited.field(field)) << "an older directory has no mobile numbers";
}

TEST_P(ExportTest, AddressesAreLeftAloneWhereTheUserOrTheSettingForbids) {
    fill(2);
    const std::tuple<const wchar_t*, std::wstring, std::wstring, const wchar_t*, long> cases[] = {
        {L"1", L"", L"a", L"", 0},
        {L"0", L"", L"a", L"a", 4},
        {L"0", L"deny", L"b", L"a", 1},
        {L"0", L"", L"b", L"b", 4}};
    for (const auto& [forbidden, guard, inDirectory, inOutlook, calls] : cases) {
        const std::wstring other = guard + inDirectory;
        sql({L"Update Employees Set EmailAddress = \"" + inDirectory + L"\", Department = \"" + other +
             L"\""});
        popup(L"NoEmailAddressAccess", forbidden);
        outlook.server().setOption(L"Guard", guard);
        outlook.server().calls().reset();
        EXPECT_TRUE((*forbidden == L'0' || initialize()) && synchronize());
        EXPECT_EQ(outlook.server().calls().invocations(L"ContactItem.Email1Address"), calls);
        for (const auto& item : contacts())
            EXPECT_EQ(item.field(L"Email1Address") + item.field(L"Department"), inOutlook + other);
    }
}

INSTANTIATE_TEST_SUITE_P(BothWays, ExportTest, testing::Bool());

}  // namespace

}  // namespace zelbar
