#include <functional>

#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

TEST_F(ExportTest, WritesOnlyWhatDiffers) {
    directory.fill(5);
    directory.add(7, {});
    directory.place(7, 1);
    directory.place(1, 1);
    EXPECT_TRUE(initialize());
    for (int i = 0; i < 2; ++i) {
        outlook.server().calls().reset();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(saves(), 0);
    }
    EXPECT_EQ(employeeIds(), (Ids{1, 1, 2, 3, 4, 5, 7}));

    directory.execute(L"Delete From BLFPagesContents Where EmployeeId = 1 And BLFpageId = 2");
    directory.execute(L"Update Employees Set BusinessPhone = \"99\", Categories = 2 Where EmployeeId = 2");
    directory.execute(L"Update Employees Set BusinessPhone = Null Where EmployeeId = 3");
    directory.execute(L"Update BLFPagesContents Set BLFpageId = 1 Where EmployeeId = 3");
    directory.execute(L"Delete From Employees Where EmployeeId = 4");
    directory.execute(L"Delete From BLFPagesContents Where EmployeeId = 5");
    directory.add(6, {{L"LastName", L"New"}});
    directory.place(6, 1);
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(saves(), 3);
    EXPECT_EQ(employeeIds(), (Ids{1, 2, 3, 6, 7}));
    const auto all = byName();
    EXPECT_EQ(all.at(L"Employee 1").field(L"Categories"), L"Phone sets");
    EXPECT_EQ(all.at(L"Employee 2").field(L"BusinessTelephoneNumber"), L"99");
    EXPECT_EQ(all.at(L"Employee 2").field(L"Categories"), L"Employees");
    EXPECT_EQ(userProperty(all.at(L"Employee 2"), L"CategorieId"), L"2");
    EXPECT_EQ(all.at(L"Employee 3").field(L"BusinessTelephoneNumber"), L"");
    EXPECT_EQ(all.at(L"Employee 3").field(L"Categories"), L"Phone sets");
    EXPECT_EQ(all.at(L"New").field(L"Categories"), L"Phone sets");
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder not found: [employeeId] = 4"));
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder remove contacts: 5"));
}

TEST_F(ExportTest, LeavesAloneWhatIsNotItsOwn) {
    directory.fill(2);
    EXPECT_TRUE(initialize());
    auto& mailbox = outlook.mailbox();
    const auto staff = folderCalled(L"Staff").id;
    mailbox.addContact(staff, {{L"LastName", L"A user's own"}});
    mailbox.addDistributionList(staff, L"Team");
    auto text = mailbox.addContact(staff, {{L"LastName", L"A text"}});
    mailbox.setUserProperty(text, L"EmployeeId", 1, L"77");
    auto fraction = mailbox.addContact(staff, {{L"LastName", L"A fraction"}});
    mailbox.setUserProperty(fraction, L"EmployeeId", 3, L"1.5");
    auto unset = mailbox.addContact(staff, {{L"LastName", L"Unset"}});
    mailbox.setUserProperty(unset, L"EmployeeId", 3, L"0");
    auto edited = contacts().at(0);
    edited.fields[L"Categories"] = L"Friends; Employees";
    edited.fields[L"JobTitle"] = L"Chess champion";
    edited.fields[L"MobileTelephoneNumber"] = L"not the directory's";
    mailbox.save(edited);
    directory.execute(L"Delete From Employees Where EmployeeId = 2");
    outlook.server().calls().reset();
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(contacts().size(), 6u);
    EXPECT_EQ(saves(), 1);
    const auto kept = contacts().at(0);
    EXPECT_EQ(kept.field(L"Categories"), L"Friends; Employees");
    EXPECT_EQ(kept.field(L"JobTitle"), L"Chess champion");
    EXPECT_EQ(kept.field(L"MobileTelephoneNumber"), L"");
}

TEST_F(ExportTest, ContactsThatFailAreLoggedAndTheRestGoesOn) {
    directory.fill(6);
    EXPECT_TRUE(initialize());
    directory.execute(L"Update Employees Set Department = \"New\" Where EmployeeId < 4");
    directory.execute(L"Delete From Employees Where EmployeeId > 4");
    outlook.server().faults().failMember(L"ContactItem.Save", {E_ACCESSDENIED, L"No."}, 1);
    outlook.server().faults().failMember(L"ContactItem.Delete", {E_ACCESSDENIED, L"No."}, 1);
    EXPECT_FALSE(synchronize());
    EXPECT_EQ(timesTraced("cDataConnector.copyToContactItem Error in "), 2);
    EXPECT_EQ(contacts().size(), 5u);
    EXPECT_TRUE(synchronize());
    expectOneEach(4);
    for (const auto& [name, item] : byName())
        EXPECT_EQ(item.field(L"Department"), name == L"Employee 4" ? L"" : L"New");
}

TEST_F(ExportTest, AddressesAreLeftAloneWhereTheUserOrTheSettingForbids) {
    directory.fill(3);
    directory.execute(L"Update Employees Set EmailAddress = \"a@firm.example\"");
    const auto expectAddresses = [this](const wchar_t* address) {
        for (const auto& item : contacts()) EXPECT_EQ(item.field(L"Email1Address"), address);
    };
    const auto& calls = outlook.server().calls();
    registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", L"1");
    EXPECT_TRUE(initialize());
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(calls.invocations(L"ContactItem.Email1Address"), 0);
    expectAddresses(L"");
    registry.set(HKEY_CURRENT_USER, kPopupKey, L"NoEmailAddressAccess", L"0");
    EXPECT_TRUE(synchronize());
    expectAddresses(L"a@firm.example");

    directory.execute(L"Update Employees Set EmailAddress = \"b@firm.example\", Department = \"New\"");
    for (const wchar_t* answer : {L"deny", L"abort"}) {
        outlook.server().setOption(L"Guard", answer);
        outlook.server().calls().reset();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(calls.invocations(L"ContactItem.Email1Address"), 1) << "one prompt a run";
        expectAddresses(L"a@firm.example");
        EXPECT_EQ(contacts().back().field(L"Department"), L"New");
    }
    outlook.server().setOption(L"Guard", L"");
    EXPECT_TRUE(synchronize());
    expectAddresses(L"b@firm.example");
}

/// Thousands of employees must not cost more calls each than ten do.
TEST_F(ExportTest, TheCallsForAnEmployeeDoNotDependOnTheirNumber) {
    const std::function<bool()> runs[] = {[this] { return initialize(); }, [this] { return synchronize(); },
                                          [this] {
                                              directory.execute(L"Update Employees Set Department = \"New\"");
                                              return synchronize();
                                          }};
    std::vector<std::vector<long>> calls(std::size(runs));
    for (const long count : {10, 20, 40}) {
        directory.execute(L"Delete From BLFPagesContents");
        directory.execute(L"Delete From Employees");
        directory.fill(count);
        if (count > 10) outlook.mailbox().eraseFolder(folderCalled(L"Staff").id);
        registry.set(HKEY_CURRENT_USER, kExportFolderKey, L"EntryId", L"");
        for (size_t i = 0; i < calls.size(); ++i) calls[i].push_back(callsOf(runs[i]));
    }
    const long most[] = {12, 22, 26};
    for (size_t i = 0; i < calls.size(); ++i) {
        EXPECT_EQ(calls[i][2] - calls[i][1], 2 * (calls[i][1] - calls[i][0]));
        EXPECT_LE((calls[i][1] - calls[i][0]) / 10, most[i]);
    }
}

}  // namespace

}  // namespace zelbar
