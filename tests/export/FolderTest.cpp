#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

TEST_P(ExportTest, TheFolderIsFoundWhereverTheUserPutsItAndMadeAnewOnceItIsGone) {
    fill(2);
    EXPECT_FALSE(synchronize()) << "without a name there is nothing to make";
    EXPECT_TRUE(traced("Error (SynchronizeExportFolder): There is no export folder. in "));
    faults().failMember(L"ContactItem.Save", {E_FAIL, L"No."}, 1);
    EXPECT_FALSE(synchronize(L"Staff"));
    EXPECT_TRUE(
        traced("cDataConnector.copyToContactItem Error in Microsoft Outlook. No. (-2147467259) at line 1"));
    const auto staff = folderCalled(L"Staff");
    EXPECT_EQ(employeeIds(), Ids{2}) << "what fails is one line, and the rest goes on";
    mailbox.renameFolder(staff.id, L"Colleagues");
    mailbox.moveFolder(staff.id, defaultContacts.id);
    add(3, 2);
    EXPECT_TRUE(synchronize(L"Staff"));
    EXPECT_EQ(mailbox.items(staff.id).size(), 3u);
    mailbox.eraseFolder(staff.id);
    EXPECT_TRUE(initialize(L"")) << "without a name it is called as the category";
    mailbox.eraseFolder(folderCalled(L"Employees").id);
    registry.set(HKEY_CURRENT_USER, std::wstring(kClientKey) + L"\\Settings", L"zelbarExportFolder", L"Firm");
    EXPECT_TRUE(initialize(L"")) << "or as the settings say";
    EXPECT_EQ(employeeIds(L"Firm"), (Ids{1, 2, 3}));
    EXPECT_EQ(registry.get(HKEY_CURRENT_USER, std::wstring(kPopupKey) + L"\\outlook98", L"IsNewWXDFolder"),
              L"1");
}

TEST_P(ExportTest, TheUserIsToldThatTheNameIsTakenAndOnlyThen) {
    const auto own = mailbox.addFolder(root, L"staff", standin::outlook::ItemType::Contact);
    EXPECT_FALSE(initialize());
    ASSERT_EQ(told.size(), 1u);
    EXPECT_TRUE(told[0].ends_with(L"|A folder with this name already exists. Please use another name."));
    mailbox.eraseFolder(own.id);
    for (const wchar_t* member : {L"Folders.Add", L"MAPIFolder.StoreID"}) {
        faults().failMember(member, {E_FAIL, L"No rights."}, 1);
        EXPECT_FALSE(initialize());
    }
    EXPECT_TRUE(initialize()) << "the folder that could not be remembered is not in the way";
    EXPECT_EQ(told.size(), 1u);
}

}  // namespace

}  // namespace zelbar
