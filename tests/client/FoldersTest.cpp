#include "tests/client/HostedTest.h"

namespace pimcall {
namespace {

using standin::outlook::FolderRecord;
using standin::outlook::ItemType;
using standin::outlook::SpecialFolder;

/// A mailbox with three contacts folders: two in the user's own store and one in another.
class FoldersTest : public HostedTest {
  protected:
    FoldersTest() {
        auto& mailbox = outlook.mailbox();
        contacts_ = mailbox.specialFolder(SpecialFolder::Contacts);
        friends_ = mailbox.addFolder(contacts_.id, L"Přátelé", ItemType::Contact);
        team_ = mailbox.ensureFolder(mailbox.addStore(L"Sales"), L"Team", ItemType::Contact);
    }

    void set(const std::wstring& name, const std::wstring& value) {
        registry.set(HKEY_CURRENT_USER, zelbar::kPopupKey + std::wstring(L"\\zelbar00folder"), name, value);
    }
    void store(const std::wstring& number, const FolderRecord& which, const wchar_t* selected) {
        set(L"entryId" + number, outlook.mailbox().entryId(which));
        set(L"storeId" + number, outlook.mailbox().storeId(which.store));
        if (selected) set(L"selectId" + number, selected);
    }
    bool says(const std::wstring& part) const { return out.find(part) != std::wstring::npos; }

    FolderRecord contacts_, friends_, team_;
};

TEST_F(FoldersTest, TheStoredOnesStandBesideOutlooksOwn) {
    store(L"1", friends_, L"0");
    EXPECT_EQ(ExitCode::NotFound, run({L"folders"})) << "stored, but not selected";
    store(L"2", contacts_, nullptr);
    const FolderRecord gone = outlook.mailbox().addFolder(contacts_.id, L"Gone", ItemType::Contact);
    store(L"3", gone, L"-1");
    store(L"5", team_, L"-1");  // after a gap: does not count
    outlook.mailbox().eraseFolder(gone.id);
    set(L"ConfigChanged", L"1");
    EXPECT_EQ(ExitCode::Found, run({L"folders"}));
    EXPECT_EQ(
        L"Contacts folders: 3 stored, 2 of them selected.\n"
        L"  selected      \\Personal Folders\\Contacts\n"
        L"  not selected  \\Personal Folders\\Contacts\\Přátelé\n"
        L"  not stored    \\Sales\\Team\n"
        L"  gone          (number 3 of the stored ones, selected)\n"
        L"The choice has changed, and the cache has not been filled since.\n",
        out);
    EXPECT_EQ(ExitCode::Found, run({L"folders", L"--verbose"}));
    EXPECT_TRUE(says(L"Folder id  " + outlook.mailbox().entryId(team_) + L"\n")) << out.c_str();

    EXPECT_EQ(ExitCode::Found, run({L"folders", L"--json"}));
    EXPECT_TRUE(says(L"{\"stored\":3,\"selected\":2,\"configChanged\":true,\"outlookReached\":true,"));
    EXPECT_TRUE(says(L"{\"state\":\"gone\",\"path\":\"\",\"number\":3,\"selected\":true,\"entryId\":\""));
}

TEST_F(FoldersTest, NothingIsCalledGoneThatOutlookMayJustNotHaveShown) {
    store(L"1", contacts_, L"-1");
    store(L"2", team_, L"0");
    auto& faults = outlook.server().faults();

    faults.failMember(L"MAPIFolder.StoreID", {E_FAIL, L"Offline."}, 1);
    EXPECT_EQ(ExitCode::Found, run({L"folders"}));
    EXPECT_TRUE(
        says(L"  not selected  \\Sales\\Team\n"
             L"  not seen      (number 1 of the stored ones, selected)\n"
             L"Outlook did not show everything"))
        << out.c_str();

    // Each call in turn meets an Outlook that has just gone: another one is asked.
    for (int call = 1; call <= 40; call += 3) {
        faults.clear();
        faults.quitAtCall(call);
        EXPECT_EQ(ExitCode::Found, run({L"folders"})) << call;
        EXPECT_TRUE(says(L"  selected      \\Personal Folders\\Contacts\n")) << call << out.c_str();
        EXPECT_FALSE(says(L"did not show everything")) << call << out.c_str();
    }

    faults.clear();
    faults.failCreation(REGDB_E_CLASSNOTREG);
    EXPECT_EQ(ExitCode::Found, run({L"folders"}));
    EXPECT_EQ(
        L"Contacts folders: 2 stored, 1 of them selected.\n"
        L"  not seen      (number 1 of the stored ones, selected)\n"
        L"  not seen      (number 2 of the stored ones, not selected)\n"
        L"Outlook cannot be reached: these are the stored folders only.\n",
        out);
}

}  // namespace
}  // namespace pimcall
