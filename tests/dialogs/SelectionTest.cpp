#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

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

class Selection : public DialogTest, public testing::WithParamInterface<Case> {
  protected:
    static FolderSelection loaded() {
        driver().log.load();
        FolderSelection selection(driver().outlook, driver().log);
        while (selection.search()) {
        }
        selection.load();
        return selection;
    }
    void prepare(const Case& given) {
        std::vector<FolderRecord> folders{contacts};
        for (int i = 1; i < given.folders; ++i) folders.push_back(addFolder(L"F" + std::to_wstring(100 + i)));
        int number = 0;
        for (size_t i = 0; i < given.stored.size(); ++i) {
            const wchar_t mark = given.stored[i];
            if (mark == L'.') continue;
            store(++number, folders[i], mark == L'0' ? L"0" : mark == L'e' ? L"" : L"-1");
            if (mark == L'x') outlook.mailbox().eraseFolder(folders[i].id);
            if (mark == L's') registry.set(HKEY_CURRENT_USER, kSelectionKey, L"storeId1", L"00FF");
        }
        setPopup(L"InitPSTnumber", given.storesCounted);
    }
};

TEST_P(Selection, IsLoadedAndSaved) {
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
    EXPECT_EQ(stored(L"entryId1"), entryId(contacts));
    EXPECT_EQ(stored(L"ConfigChanged"), given.configChanged);
    selection.save(true);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    EXPECT_TRUE(loaded().reinitialize());
    EXPECT_FALSE(loaded().StoresChanged());
}

INSTANTIATE_TEST_SUITE_P(Stored, Selection, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

TEST_F(Selection, AnIncompleteListIsNeverSavedUnasked) {
    store(1, contacts);
    store(2, addFolder(L"Other"));
    const std::function<void()> ways[] = {
        [this] {
            faults().failMember(L"MAPIFolder.DefaultItemType", {E_FAIL, L"Offline."}, 1);
        },
        [this] { faults().failMember(L"NameSpace.Folders", {static_cast<HRESULT>(0x80010001)}); },
        [this] { faults().quitAtCall(20); },
        [this] { quitOutlook(); },
    };
    for (const auto& spoil : ways) {
        spoil();
        EXPECT_FALSE(loaded().complete()) << &spoil - ways;
        EXPECT_EQ(storedStates(), L"11") << &spoil - ways;
        EXPECT_EQ(stored(L"ConfigChanged"), L"(none)") << &spoil - ways;
        faults().clear();
        letOutlookRest();
    }
    EXPECT_TRUE(traced("Getting Outlook folders : no connection to object outlook"));
    // What OK does is the user's own decision.
    loaded().save(false);
    EXPECT_EQ(storedStates(), L"");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

}  // namespace

}  // namespace zelbar
