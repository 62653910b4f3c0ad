#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

/// What becomes of a stored selection when it is loaded, and then saved with OK.
struct Case {
    const char* name;
    /// Folders in the mailbox: the contacts folder and those added to it.
    int folders;
    /// What is stored of each folder in turn: its state ('1', '0'; 'e' for an empty one, 'z' for "00"), or
    /// '1' under another store ('s'), or '1' and the folder has gone since ('x'). '.' is not stored.
    std::wstring stored;
    const wchar_t* storesCounted;
    std::wstring loaded;
    bool storesChanged;
    /// Folders whose check mark the user turns.
    std::vector<size_t> turned;
    std::wstring saved;
    const wchar_t* configChanged;
};

const std::wstring k16(16, L'1');

const Case kCases[] = {
    {"NoChange", 2, L"10", L"", L"10", false, {}, L"10", L"0"},
    {"AnyOtherStateThanZeroIsSelected", 4, L".e0z", L"", L"0101", false, {0}, L"1101", L"1"},
    {"AFolderHasGone", 2, L"1x", L"", L"1", true, {}, L"1", L"1"},
    {"TheFirstStoredFolderHasGone", 3, L".x1", L"", L"01", true, {}, L"01", L"1"},
    {"TheStoreIsAnother", 1, L"s", L"", L"0", true, {}, L"0", L"1"},
    {"SixteenStored", 16, k16, L"", k16, false, {}, k16, L"0"},
    {"TheSeventeenthIsNotRead", 17, k16 + L"1", L"", k16 + L"0", false, {}, k16 + L"0", L"0"},
    {"NorTheEighteenth",
     19,
     L"." + k16 + L"11",
     L"",
     L"0" + k16 + L"00",
     false,
     {},
     L"0" + k16 + L"00",
     L"0"},
    {"TheSeventeenthIsStoredAllTheSame", 18, k16, L"", k16 + L"00", false, {16, 17}, k16 + L"11", L"1"},
    {"FirstConfigurationTakesSixteen", 20, L"", L"1", k16 + L"0000", false, {}, k16 + L"0000", L"0"},
    {"FirstConfigurationWithOtherStores", 1, L"", L"2", L"1", true, {}, L"1", L"1"},
    {"FirstConfigurationWithNothingCounted", 1, L"", L"", L"1", true, {}, L"1", L"1"},
};

class StoredSelectionTest : public DialogTest, public testing::WithParamInterface<Case> {
  protected:
    void prepare(const Case& given) {
        std::vector<FolderRecord> folders{contacts};
        for (int i = 1; i < given.folders; ++i) folders.push_back(addFolder(L"F" + std::to_wstring(100 + i)));
        int number = 0;
        for (size_t i = 0; i < given.stored.size(); ++i) {
            const wchar_t mark = given.stored[i];
            if (mark == L'.') continue;
            const wchar_t* states[] = {L"-1", L"0", L"", L"00"};
            const size_t state = std::wstring(L"10ez").find(mark);
            store(++number, folders[i], states[state == std::wstring::npos ? 0 : state]);
            if (mark == L'x') outlook.mailbox().eraseFolder(folders[i].id);
            if (mark == L's')
                registry.set(HKEY_CURRENT_USER, kSelectionKey, L"storeId" + std::to_wstring(number), L"00FF");
        }
        setPopup(L"InitPSTnumber", given.storesCounted);
    }
    /// The stored states as '1' and '0'.
    std::wstring states() const {
        std::wstring result;
        for (const wchar_t letter : storedStates())
            if (letter == L'1' || letter == L'0') result += letter;
        return result;
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
    EXPECT_EQ(selection.StoresChanged(), given.storesChanged);
    // Only other folders than the stored ones are saved unasked.
    EXPECT_EQ(stored(L"ConfigChanged"), given.storesChanged ? L"1" : L"(none)");
    if (given.storesChanged)
        EXPECT_EQ(states(), given.loaded);
    else
        EXPECT_EQ(storedStates(), before);

    for (const size_t turned : given.turned) folders[turned]->IsSelected = !folders[turned]->IsSelected;
    selection.save(false);
    EXPECT_EQ(states(), given.saved);
    EXPECT_EQ(stored(L"entryId1"), entryId(contacts));
    EXPECT_EQ(stored(L"storeId1"), storeId(contacts));
    EXPECT_EQ(stored(L"entryId" + std::to_wstring(folders.size() + 1)), L"(none)");
    EXPECT_EQ(stored(L"ConfigChanged"), given.configChanged);
    EXPECT_FALSE(loaded().StoresChanged());
}

INSTANTIATE_TEST_SUITE_P(Selection, StoredSelectionTest, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

using Selection = DialogTest;

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
        faults().clear();
    };
    faults().failMember(L"MAPIFolder.DefaultItemType", {E_FAIL, L"Offline."}, 1);
    expectKept("a folder that fails");
    faults().failMember(L"NameSpace.Folders", {static_cast<HRESULT>(0x80010001)});
    expectKept("a busy Outlook");
    faults().quitAtCall(20);
    expectKept("Outlook dies during the search");
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
    EXPECT_TRUE(traced("Getting Outlook folders : no connection to object outlook"));
    EXPECT_EQ(outlook.server().calls().invocations(), 0);
    selection.save(false);
    EXPECT_EQ(storedStates(), L"");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
    startOutlook();
    EXPECT_TRUE(loaded().FirstConfiguration());
}

TEST_F(Selection, ANewCacheIsAlsoNeededWhenAskedForOrWhenFoldersWereMade) {
    store(1, contacts);
    auto selection = loaded();
    selection.save(true);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    EXPECT_TRUE(loaded().reinitialize());
    selection.SetFoldersModified();
    selection.save(false);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    EXPECT_EQ(storedStates(), L"-1");
    EXPECT_TRUE(traced("Nb folders in registry = 1 nb folders selected found = 1"));
}

}  // namespace

}  // namespace zelbar
