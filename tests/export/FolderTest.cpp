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
    EXPECT_TRUE(initialize(L"Others"));
    EXPECT_TRUE(synchronize());
    expectOneEach(2, L"Others");
}

TEST_F(ExportFolder, IsNotMadeAnewWhenOutlookOnlyDoesNotAnswer) {
    ASSERT_TRUE(initialize());
    const size_t before = folders();
    const struct {
        unsigned long code;
        bool bare;
    } faults[] = {{0x80010001, true},  {0x8001010A, true},  {0x8004011C, false}, {0x8004011D, false},
                  {0x80070005, false}, {0x80004005, false}, {0x800706BE, true}};
    for (const auto& fault : faults) {
        standin::Failure failure{static_cast<HRESULT>(fault.code), {}};
        if (!fault.bare) failure.description = L"No.";
        outlook.server().faults().failMember(L"GetFolderFromID", failure);
        EXPECT_FALSE(initialize(L"Other")) << fault.code;
        EXPECT_FALSE(synchronize(L"Other")) << fault.code;
        outlook.server().faults().clear();
    }
    // The store is not open, and the default store does not have the folder: it may come back.
    outlook.server().faults().failMember(L"GetFolderFromID", {static_cast<HRESULT>(0x8004011C), L"No."}, 1);
    outlook.server().faults().failMember(L"GetFolderFromID", {static_cast<HRESULT>(0x8004010F), L"No."});
    EXPECT_FALSE(initialize(L"Other"));
    outlook.server().faults().clear();
    EXPECT_EQ(folders(), before);
    expectOneEach(2);
    EXPECT_TRUE(traced("oTargetfolder Is Nothing, try find oTargetfolder only with EntryId"));
    EXPECT_TRUE(messages().empty());
}

TEST_F(ExportFolder, TheUserIsToldThatTheNameIsTaken) {
    auto& mailbox = outlook.mailbox();
    const auto own =
        mailbox.addFolder(mailbox.defaultStore().root, L"staff", standin::outlook::ItemType::Contact);
    mailbox.addContact(own.id, {{L"LastName", L"A user's own"}});
    EXPECT_FALSE(initialize(L"Staff"));
    EXPECT_EQ(messages(),
              std::vector<std::wstring>{L"A folder with this name already exists. Please use another name."});
    EXPECT_EQ(mailbox.items(own.id).size(), 1u);
    EXPECT_FALSE(registry.get(HKEY_CURRENT_USER, kExportFolderKey, L"EntryId"));
    EXPECT_FALSE(synchronize());
    EXPECT_EQ(mailbox.items(own.id).size(), 1u);
    EXPECT_TRUE(initialize(L"Staff of the firm"));
}

TEST_F(ExportFolder, AnotherFaultOfTheNewFolderIsNotTheName) {
    outlook.server().faults().failMember(L"Folders.Add", {E_FAIL, L"No rights."});
    EXPECT_FALSE(initialize());
    EXPECT_TRUE(messages().empty());
    EXPECT_TRUE(traced("Error (InitializeExportFolder): No rights. in Microsoft Outlook"));
    outlook.server().faults().clear();
    outlook.server().faults().failMember(L"MAPIFolder.StoreID", {static_cast<HRESULT>(0x80010001)}, 1);
    EXPECT_FALSE(initialize());
    EXPECT_TRUE(initialize()) << "the folder that could not be remembered is not in the way";
    EXPECT_TRUE(messages().empty());
    expectOneEach(2);
}

}  // namespace

}  // namespace zelbar
