#include "tests/client/HostedTest.h"

namespace pimcall {
namespace {

using standin::outlook::FolderRecord;
using standin::outlook::ItemType;

/// A mailbox with three contacts folders: two in the user's own store and one in another.
class FoldersTest : public HostedTest {
  protected:
    FoldersTest() {
        friends_ = mailbox.addFolder(defaultContacts.id, L"Přátelé", ItemType::Contact);
        team_ = mailbox.ensureFolder(mailbox.addStore(L"Sales"), L"Team", ItemType::Contact);
    }

    FolderRecord friends_, team_;
};

TEST_F(FoldersTest, TheStoredOnesStandBesideOutlooksOwn) {
    chooseFolder(1, friends_, L"0");
    EXPECT_EQ(ExitCode::NotFound, run({L"folders"})) << "stored, but not selected";
    chooseFolder(2, defaultContacts, L"");
    const FolderRecord gone = mailbox.addFolder(defaultContacts.id, L"Gone", ItemType::Contact);
    chooseFolder(3, gone, L"-1");
    chooseFolder(5, team_, L"-1");  // after a gap: does not count
    mailbox.eraseFolder(gone.id);
    registry.set(HKEY_CURRENT_USER, zelbar::kFolderKey, L"ConfigChanged", L"1");
    EXPECT_EQ(ExitCode::Found, run({L"folders"}));
    EXPECT_EQ(
        L"Contacts folders: 3 stored, 2 of them selected.\n"
        L"  selected      \\Personal Folders\\Contacts\n"
        L"  not selected  \\Personal Folders\\Contacts\\Přátelé\n"
        L"  not stored    \\Sales\\Team\n"
        L"  gone          (number 3 of the stored ones, selected)\n"
        L"The choice has changed, and the cache has not been filled since.\n",
        out);
    expect(ExitCode::Found, {L"folders", L"--verbose"}, {L"Folder id  " + mailbox.entryId(team_) + L"\n"});
    expect(ExitCode::Found, {L"folders", L"--json"},
           {L"{\"stored\":3,\"selected\":2,\"configChanged\":true,\"outlookReached\":true,",
            L"{\"state\":\"gone\",\"path\":\"\",\"number\":3,\"selected\":true,\"entryId\":\""});
}

TEST_F(FoldersTest, NothingIsCalledGoneThatOutlookMayJustNotHaveShown) {
    chooseFolder(1, defaultContacts, L"-1");
    chooseFolder(2, team_, L"0");

    faults().failMember(L"MAPIFolder.StoreID", {E_FAIL, L"Offline."}, 1);
    expect(ExitCode::Found, {L"folders"},
           {L"  not selected  \\Sales\\Team\n"
            L"  not seen      (number 1 of the stored ones, selected)\n"
            L"Outlook did not show everything"});

    // Each call in turn meets an Outlook that has just gone: another one is asked.
    for (int call = 1; call <= 40; call += 3) {
        faults().clear();
        faults().quitAtCall(call);
        SCOPED_TRACE(call);
        expect(ExitCode::Found, {L"folders"}, {L"  selected      \\Personal Folders\\Contacts\n"});
        EXPECT_FALSE(says(L"did not show everything"));
    }

    faults().clear();
    faults().failCreation(REGDB_E_CLASSNOTREG);
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
