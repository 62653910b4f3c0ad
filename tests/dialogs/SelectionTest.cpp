#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

class Selection : public DialogTest {
  protected:
    /// Adds folders after the one that is there already.
    std::vector<FolderRecord> addFolders(int count) {
        std::vector<FolderRecord> result;
        for (int i = 1; i <= count; ++i) {
            wchar_t name[16];
            swprintf(name, 16, L"Folder %02d", i);
            result.push_back(addFolder(name));
        }
        return result;
    }
};

TEST_F(Selection, WithoutChangesStaysAndNeedsNoNewCache) {
    store(1, contacts);
    store(2, addFolder(L"Off"), L"0");
    auto selection = loaded();
    EXPECT_FALSE(selection.FirstConfiguration());
    EXPECT_FALSE(selection.StoresChanged());
    EXPECT_EQ(stored(L"ConfigChanged"), L"(none)") << "loading alone saves nothing";
    selection.save(false);
    EXPECT_EQ(storedStates(), L"-1 0");
    EXPECT_EQ(stored(L"entryId1"), entryId(contacts));
    EXPECT_EQ(stored(L"storeId1"), storeId(contacts));
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
    selection.save(true);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    EXPECT_TRUE(traced("Nb folders in registry = 1 nb folders selected found = 1"));
    EXPECT_TRUE(loaded().reinitialize());
}

TEST_F(Selection, AnyOtherStateThanZeroCountsAsSelected) {
    const auto folders = addFolders(3);
    store(1, folders[0], L"");
    store(2, folders[1], L"0");
    store(3, folders[2], L"00");
    auto selection = loaded();
    EXPECT_EQ(signatureOf(selection.folders()), L"0101");
    selection.folders()[0]->IsSelected = true;
    selection.save(false);
    EXPECT_EQ(storedStates(), L"-1 -1 0 -1");
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

TEST_F(Selection, AFolderThatHasGoneIsSavedAtOnce) {
    const auto gone = addFolder(L"Gone");
    store(1, contacts);
    store(2, gone);
    registry.set(HKEY_CURRENT_USER, kSelectionKey, L"ConfigChanged", L"0");
    outlook.mailbox().eraseFolder(gone.id);
    auto selection = loaded();
    EXPECT_TRUE(selection.StoresChanged());
    EXPECT_EQ(storedStates(), L"-1");
    EXPECT_EQ(stored(L"entryId2"), L"(none)");
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    selection.save(false);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1") << "OK does not take back that the folders have changed";
    EXPECT_FALSE(loaded().StoresChanged());
}

TEST_F(Selection, TheFirstFolderGoneIsNoFirstConfiguration) {
    const auto gone = addFolder(L"Gone");
    const auto other = addFolder(L"Other");
    store(1, gone);
    store(2, other);
    outlook.mailbox().eraseFolder(gone.id);
    const auto selection = loaded();
    EXPECT_FALSE(selection.FirstConfiguration());
    EXPECT_EQ(storedStates(), L"0 -1");
}

TEST_F(Selection, OnlySixteenStoredFoldersAreRead) {
    const auto folders = addFolders(18);
    for (int i = 0; i < 18; ++i) store(i + 1, folders[static_cast<size_t>(i)]);
    auto selection = loaded();
    EXPECT_EQ(signatureOf(selection.folders()), L"0111111111111111100");
    EXPECT_FALSE(selection.StoresChanged());
    EXPECT_TRUE(traced("Nb folders in registry = 16 nb folders selected found = 16"));
    selection.save(false);
    EXPECT_EQ(storedStates(), L"0 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 -1 0 0");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

TEST_F(Selection, AFolderSelectedBehindTheSixteenthIsUncheckedNextTime) {
    addFolders(17);
    auto selection = loaded();
    for (cfolder* found : selection.folders()) found->IsSelected = true;
    selection.save(false);
    EXPECT_EQ(stored(L"selectId17"), L"-1");
    EXPECT_EQ(stored(L"selectId18"), L"-1");
    auto next = loaded();
    EXPECT_EQ(signatureOf(next.folders()), L"111111111111111100");
    next.save(false);
    EXPECT_EQ(stored(L"selectId17"), L"0");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

TEST_F(Selection, AFirstConfigurationTakesTheFirstSixteen) {
    addFolders(19);
    setPopup(L"InitPSTnumber", L"1");
    auto selection = loaded();
    EXPECT_TRUE(selection.FirstConfiguration());
    EXPECT_FALSE(selection.StoresChanged());
    EXPECT_EQ(signatureOf(selection.folders()), std::wstring(16, L'1') + L"0000");
    EXPECT_EQ(storedStates(), L"");
    selection.save(false);
    EXPECT_EQ(stored(L"selectId16"), L"-1");
    EXPECT_EQ(stored(L"selectId17"), L"0");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

TEST_F(Selection, AFirstConfigurationWithOtherStoresIsSavedAtOnce) {
    // No number stored is as good as none counted.
    const auto selection = loaded();
    EXPECT_TRUE(selection.StoresChanged());
    EXPECT_EQ(storedStates(), L"-1");
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

TEST_F(Selection, AnIncompleteListIsNeverSavedUnasked) {
    const auto other = addFolder(L"Other");
    const auto expectKept = [&](const char* what) {
        store(1, contacts);
        store(2, other);
        auto selection = loaded();
        EXPECT_FALSE(selection.complete()) << what;
        EXPECT_FALSE(selection.StoresChanged()) << what;
        EXPECT_EQ(storedStates(), L"-1 -1") << what;
        EXPECT_EQ(stored(L"entryId1"), entryId(contacts)) << what;
        EXPECT_EQ(stored(L"ConfigChanged"), L"(none)") << what;
    };
    faults().failMember(L"MAPIFolder.DefaultItemType", {E_FAIL, L"Offline."}, 1);
    expectKept("a folder that fails");
    faults().clear();
    faults().failMember(L"NameSpace.Folders", {static_cast<HRESULT>(0x80010001)});
    expectKept("a busy Outlook");
    faults().clear();
    faults().quitAtCall(20);
    expectKept("Outlook dies during the search");
    faults().clear();
    quitOutlook();
    expectKept("no Outlook");
    setPopup(L"InitPSTnumber", L"7");
    expectKept("no Outlook, other stores counted");
}

TEST_F(Selection, WithoutOutlookOnlyOkEmptiesIt) {
    store(1, contacts);
    quitOutlook();
    auto selection = loaded();
    EXPECT_FALSE(selection.reached());
    selection.save(false);
    EXPECT_EQ(storedStates(), L"");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
    startOutlook();
    EXPECT_TRUE(loaded().FirstConfiguration());
}

TEST_F(Selection, ChangedFoldersNeedANewCache) {
    store(1, contacts);
    auto selection = loaded();
    selection.SetFoldersModified();
    selection.save(false);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    EXPECT_EQ(storedStates(), L"-1");
}

TEST_F(Selection, SameEntryInAnotherStoreIsAnotherFolder) {
    store(1, contacts);
    registry.set(HKEY_CURRENT_USER, kSelectionKey, L"storeId1", L"00FF");
    auto selection = loaded();
    EXPECT_TRUE(selection.StoresChanged());
    EXPECT_EQ(storedStates(), L"0");
}

}  // namespace

}  // namespace zelbar
