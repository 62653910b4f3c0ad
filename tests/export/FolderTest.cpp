#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

class ExportFolder : public ExportTest {
  protected:
    void SetUp() override {
        ExportTest::SetUp();
        directory.fill(2);
    }
    size_t folders() { return outlook.mailbox().subfolders(outlook.mailbox().defaultStore().root).size(); }
};

TEST_F(ExportFolder, IsFoundAgainWhereverTheUserPutsIt) {
    ASSERT_TRUE(initialize());
    auto& mailbox = outlook.mailbox();
    const auto staff = folderCalled(L"Staff").id;
    const size_t before = folders();
    mailbox.renameFolder(staff, L"Colleagues");
    EXPECT_TRUE(synchronize());
    expectOneEach(2, L"Colleagues");
    const auto contacts = mailbox.specialFolder(standin::outlook::SpecialFolder::Contacts).id;
    mailbox.moveFolder(staff, contacts);
    directory.execute(L"Delete From Employees Where EmployeeId = 2");
    EXPECT_TRUE(synchronize(L"Staff"));
    EXPECT_EQ(mailbox.items(staff).size(), 1u);
    EXPECT_EQ(folders(), before - 1) << "no second folder";
}

TEST_F(ExportFolder, IsMadeAnewOnceItIsGone) {
    ASSERT_TRUE(initialize());
    outlook.mailbox().eraseFolder(folderCalled(L"Staff").id);
    EXPECT_FALSE(synchronize()) << "without a name there is nothing to make";
    EXPECT_TRUE(traced("Error (SynchronizeExportFolder): There is no export folder. in "));
    EXPECT_TRUE(synchronize(L"Staff"));
    expectOneEach(2);
    outlook.mailbox().eraseFolder(folderCalled(L"Staff").id);
    EXPECT_TRUE(initialize(L"")) << "without a name it is called as the category";
    expectOneEach(2, L"Employees");
    outlook.mailbox().eraseFolder(folderCalled(L"Employees").id);
    registry.set(HKEY_CURRENT_USER, std::wstring(kClientKey) + L"\\Settings", L"zelbarExportFolder", L"Firm");
    EXPECT_TRUE(initialize(L"")) << "or as the settings say";
    expectOneEach(2, L"Firm");
}

TEST_F(ExportFolder, IsNotMadeAnewWhenOutlookOnlyDoesNotAnswer) {
    ASSERT_TRUE(initialize());
    const size_t before = folders();
    const standin::Failure failures[] = {{static_cast<HRESULT>(0x80010001), {}},
                                         {static_cast<HRESULT>(0x800706BE), {}},
                                         {static_cast<HRESULT>(0x8004011C), L"No."},
                                         {E_ACCESSDENIED, L"No."},
                                         {E_FAIL, L"No."}};
    for (const auto& failure : failures) {
        outlook.server().faults().failMember(L"GetFolderFromID", failure);
        EXPECT_FALSE(initialize(L"Other"));
        EXPECT_FALSE(synchronize(L"Other"));
        outlook.server().faults().clear();
    }
    // The store is not open, and the default store does not have the folder: it may come back.
    outlook.server().faults().failMember(L"GetFolderFromID", {static_cast<HRESULT>(0x8004011C), L"No."}, 1);
    outlook.server().faults().failMember(L"GetFolderFromID", {static_cast<HRESULT>(0x8004010F), L"No."});
    EXPECT_FALSE(initialize(L"Other"));
    outlook.server().faults().clear();
    EXPECT_EQ(folders(), before);
    expectOneEach(2);
    EXPECT_TRUE(messages.empty());
}

TEST_F(ExportFolder, TheUserIsToldThatTheNameIsTaken) {
    auto& mailbox = outlook.mailbox();
    const auto own =
        mailbox.addFolder(mailbox.defaultStore().root, L"staff", standin::outlook::ItemType::Contact);
    mailbox.addContact(own.id, {{L"LastName", L"A user's own"}});
    EXPECT_FALSE(initialize(L"Staff"));
    EXPECT_EQ(messages,
              std::vector<std::wstring>{L"A folder with this name already exists. Please use another name."});
    EXPECT_FALSE(registry.get(HKEY_CURRENT_USER, kExportFolderKey, L"EntryId"));
    EXPECT_FALSE(synchronize());
    EXPECT_EQ(mailbox.items(own.id).size(), 1u);
    EXPECT_TRUE(initialize(L"Staff of the firm"));
}

TEST_F(ExportFolder, AnotherFaultOfTheNewFolderIsNotTheName) {
    for (const wchar_t* member : {L"Folders.Add", L"MAPIFolder.StoreID"}) {
        outlook.server().faults().failMember(member, {E_FAIL, L"No rights."}, 1);
        EXPECT_FALSE(initialize());
    }
    EXPECT_EQ(timesTraced("Error (InitializeExportFolder): No rights. in Microsoft Outlook"), 2);
    EXPECT_TRUE(initialize()) << "the folder that could not be remembered is not in the way";
    EXPECT_TRUE(messages.empty());
    expectOneEach(2);
}

}  // namespace

}  // namespace zelbar
