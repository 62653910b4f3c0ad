#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

TEST_F(ExportTest, ASecondRunWithNothingChangedWritesNothing) {
    directory.fill(4);
    directory.add(5, {});
    directory.place(5, 1);
    directory.place(1, 1);
    EXPECT_TRUE(initialize());
    for (int i = 0; i < 2; ++i) {
        outlook.server().calls().reset();
        EXPECT_TRUE(synchronize());
        EXPECT_EQ(saves(), 0);
    }
    EXPECT_EQ(employeeIds(), (std::vector<long>{1, 1, 2, 3, 4, 5}));
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder do while for index: 6"));
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder found: [employeeId] = 5"));
    EXPECT_TRUE(traced("cDataConnector.SynchronizeExportFolder save export folder"));
}

TEST_F(ExportTest, AddsChangesAndRemovesWhatDiffers) {
    directory.fill(5);
    EXPECT_TRUE(initialize());
    directory.execute(L"Update Employees Set BusinessPhone = \"99\", Categories = 2 Where EmployeeId = 2");
    directory.execute(L"Update Employees Set BusinessPhone = Null Where EmployeeId = 3");
    directory.execute(L"Delete From Employees Where EmployeeId = 4");
    directory.execute(L"Delete From BLFPagesContents Where EmployeeId = 5");
    directory.add(6, {{L"LastName", L"New"}});
    directory.place(6, 1);
    outlook.server().calls().reset();
    EXPECT_TRUE(synchronize());
    EXPECT_EQ(saves(), 3);
    EXPECT_EQ(employeeIds(), (std::vector<long>{1, 2, 3, 6}));
    const auto all = byName();
    EXPECT_EQ(all.at(L"Ann Employee 2").field(L"BusinessTelephoneNumber"), L"99");
    EXPECT_EQ(userProperty(all.at(L"Ann Employee 2"), L"CategorieId"), L"2");
    EXPECT_EQ(all.at(L"Ann Employee 3").field(L"BusinessTelephoneNumber"), L"");
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

TEST_F(ExportTest, FollowsAnEmployeeFromPageToPage) {
    directory.fill(2);
    directory.place(1, 1);
    EXPECT_TRUE(initialize());
    EXPECT_EQ(employeeIds(), (std::vector<long>{1, 1, 2}));
    directory.execute(L"Delete From BLFPagesContents Where EmployeeId = 1 And BLFpageId = 1");
    directory.execute(L"Update BLFPagesContents Set BLFpageId = 1 Where EmployeeId = 2");
    EXPECT_TRUE(synchronize());
    const auto all = byName();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all.at(L"Ann Employee 1").field(L"Categories"), L"Employees");
    EXPECT_EQ(all.at(L"Ann Employee 2").field(L"Categories"), L"Phone sets");
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
        EXPECT_EQ(item.field(L"Department"), name == L"Ann Employee 4" ? L"" : L"New");
}

TEST_F(ExportTest, EveryPlaceWhereOutlookIsBusyOnceEndsRightAfterTheNextRun) {
    directory.fill(2);
    EXPECT_TRUE(initialize());
    directory.execute(L"Update Employees Set Department = \"New\" Where EmployeeId = 1");
    directory.execute(L"Delete From Employees Where EmployeeId = 2");
    directory.add(3, {{L"LastName", L"New"}});
    directory.place(3, 2);
    const auto before = contacts();
    outlook.server().calls().reset();
    EXPECT_TRUE(synchronize());
    const long calls = outlook.server().calls().invocations();
    for (long n = 1; n <= calls; ++n) {
        auto& mailbox = outlook.mailbox();
        const auto staff = folderCalled(L"Staff").id;
        mailbox.eraseItemsOf(staff);
        for (auto item : before) {
            item.id = 0;
            item.folder = staff;
            mailbox.save(item);
        }
        outlook.server().faults().failCall(n, {static_cast<HRESULT>(0x80010001)});
        synchronize();
        outlook.server().faults().clear();
        EXPECT_TRUE(synchronize()) << n;
        EXPECT_EQ(employeeIds(), (std::vector<long>{1, 3})) << n;
        EXPECT_EQ(byName().at(L"Ann Employee 1").field(L"Department"), L"New") << n;
    }
}

}  // namespace

}  // namespace zelbar
