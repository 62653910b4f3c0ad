#include "dialogs/FolderSelection.h"

#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

class Selection : public DialogTest {
  protected:
    Selection() { driver().log.load(); }

    static FolderSelection loaded() {
        FolderSelection selection(driver().outlook, driver().log);
        while (selection.search()) {
        }
        selection.load();
        return selection;
    }
    void addStores(int count) {
        for (int i = 1; i <= count; ++i)
            mailbox.addFolder(mailbox.addStore(L"Store " + std::to_wstring(i)).root, L"People",
                              ItemType::Contact);
    }
};

TEST_F(Selection, FoldersOfAllStoresAreFoundDepthFirstAndNothingIsAskedTwice) {
    addFolderBelow(addFolderBelow(defaultContacts, L"Kunden & Źródła"), L"Ügyfelek");
    addFolderBelow(addFolder(L"Mail", ItemType::Mail), L"Deep");
    addStores(1);
    outlook.server().calls().reset();
    auto selection = loaded();
    std::wstring paths;
    for (const cfolder* found : selection.folders()) paths += found->FullName + L"|";
    EXPECT_EQ(paths,
              L"\\Personal Folders\\Contacts|\\Personal Folders\\Contacts\\Kunden & Źródła|"
              L"\\Personal Folders\\Contacts\\Kunden & Źródła\\Ügyfelek|\\Personal Folders\\Mail\\Deep|"
              L"\\Store 1\\People|");
    EXPECT_TRUE(traced("--- PST : 'Store 1 ------------"));
    // Five calls a folder, one more for one of contacts, some for each store.
    EXPECT_LE(outlook.server().calls().invocations(),
              static_cast<long>(5 * selection.tree().size() + selection.folders().size()) + 2 * 2 + 3);
    EXPECT_EQ(outlook.server().liveObjects(), 1) << "only what the running table holds";
}

TEST_F(Selection, AHundredStoresAreSearchedAtMost) {
    addStores(4);
    for (const auto& [limit, found] : {std::pair(L"3", 3u), {L"9", 5u}, {L"0", 5u}, {L"abc", 5u}}) {
        popup(L"LimitPST", limit);
        EXPECT_EQ(loaded().folders().size(), found) << limit;
    }
    addStores(96);
    EXPECT_EQ(loaded().folders().size(), 100u);
    EXPECT_TRUE(traced("Search_Outlook_ContactFolder: Limit number of pst files to 3"));
    EXPECT_TRUE(traced("Number of PST files opened : 101"));
    EXPECT_TRUE(traced("Search_Outlook_ContactFolder: Limit of max pst files reached."));
}

/// What becomes of a stored selection when it is loaded, and then saved with OK.
struct Case {
    const char* name;
    /// Folders in the mailbox: the contacts folder and those added to it.
    int folders;
    /// What is stored of each folder in turn: its state ('1', '0'; 'e' for an empty one), or '1' under
    /// another store ('s'), or '1' and the folder has gone since ('x'). '.' is not stored.
    std::wstring stored;
    const wchar_t* storesCounted;
    bool storesChanged;
    std::wstring loaded;
    /// What the user makes of it.
    std::wstring saved;
    const wchar_t* configChanged;
};

const std::wstring k16(16, L'1');

const Case kCases[] = {
    {"NoChange", 2, L"10", L"", false, L"10", L"10", L"0"},
    {"AnyOtherStateThanZeroIsSelected", 3, L".e0", L"", false, L"010", L"110", L"1"},
    {"AFolderHasGone", 3, L".x1", L"", true, L"01", L"01", L"1"},
    {"TheStoreIsAnother", 1, L"s", L"", true, L"0", L"0", L"1"},
    {"TheSeventeenthIsNotRead", 17, k16 + L"1", L"", false, k16 + L"0", k16 + L"0", L"0"},
    {"TheSeventeenthIsStoredAllTheSame", 17, k16, L"", false, k16 + L"0", k16 + L"1", L"1"},
    {"FirstConfigurationTakesSixteen", 18, L"", L"1", false, k16 + L"00", k16 + L"00", L"0"},
    {"FirstConfigurationWithOtherStores", 1, L"", L"2", true, L"1", L"1", L"1"},
};

class StoredSelectionTest : public Selection, public testing::WithParamInterface<Case> {
  protected:
    void prepare(const Case& given) {
        std::vector<FolderRecord> folders{defaultContacts};
        for (int i = 1; i < given.folders; ++i) folders.push_back(addFolder(L"F" + std::to_wstring(100 + i)));
        int number = 0;
        for (size_t i = 0; i < given.stored.size(); ++i) {
            const wchar_t mark = given.stored[i];
            if (mark == L'.') continue;
            chooseFolder(++number, folders[i], mark == L'0' ? L"0" : mark == L'e' ? L"" : L"-1");
            if (mark == L'x') mailbox.eraseFolder(folders[i].id);
            if (mark == L's') registry.set(HKEY_CURRENT_USER, kFolderKey, L"storeId1", L"00FF");
        }
        popup(L"InitPSTnumber", given.storesCounted);
    }
};

TEST_P(StoredSelectionTest, IsLoadedAndSaved) {
    const Case& given = GetParam();
    prepare(given);
    const std::wstring before = storedStates();
    auto selection = loaded();
    const auto folders = selection.folders();
    EXPECT_EQ(signatureOf(folders), given.loaded);
    EXPECT_EQ(selection.FirstConfiguration(), given.stored.empty());
    // Only other folders than the stored ones are saved unasked.
    EXPECT_EQ(stored(L"ConfigChanged"), given.storesChanged ? L"1" : L"(none)");
    EXPECT_EQ(storedStates(), given.storesChanged ? given.loaded : before);

    for (size_t i = 0; i < folders.size(); ++i) folders[i]->IsSelected = given.saved[i] == L'1';
    selection.save(false);
    EXPECT_EQ(storedStates(), given.saved);
    EXPECT_EQ(stored(L"entryId1"), mailbox.entryId(defaultContacts));
    EXPECT_EQ(stored(L"ConfigChanged"), given.configChanged);
    selection.save(true);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    EXPECT_TRUE(loaded().reinitialize());
    EXPECT_FALSE(loaded().StoresChanged());
}

INSTANTIATE_TEST_SUITE_P(Stored, StoredSelectionTest, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

}  // namespace

}  // namespace zelbar
