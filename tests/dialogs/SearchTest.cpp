#include "dialogs/FolderSearch.h"

#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

class Search : public DialogTest {
  protected:
    Search() { driver().log.load(); }

    FoundFolders search(const std::wstring& limit = {}) {
        FolderSearch search(driver().gateway, driver().log, limit);
        while (search.step()) {
        }
        return search.take();
    }
    static std::vector<std::wstring> paths(FoundFolders found) {
        std::vector<std::wstring> result;
        for (const cfolder* contact : contactsFolders(found.tree)) result.push_back(contact->FullName);
        return result;
    }
    void addStores(int count) {
        standin::outlook::Transaction atOnce(outlook.mailbox().database());
        for (int i = 1; i <= count; ++i) {
            const auto added = outlook.mailbox().addStore(L"Store " + std::to_wstring(i));
            outlook.mailbox().addFolder(added.root, L"People", ItemType::Contact);
        }
        atOnce.commit();
    }
};

using Paths = std::vector<std::wstring>;

TEST_F(Search, WalksDepthFirstThroughAllStores) {
    const auto customers = addFolderBelow(contacts, L"Kunden & Źródła");
    addFolderBelow(customers, L"Ügyfelek");
    addFolderBelow(addFolder(L"Mail", ItemType::Mail), L"Deep");
    addStores(1);
    const FoundFolders found = search();
    EXPECT_EQ(paths(found),
              (Paths{L"\\Personal Folders\\Contacts", L"\\Personal Folders\\Contacts\\Kunden & Źródła",
                     L"\\Personal Folders\\Contacts\\Kunden & Źródła\\Ügyfelek",
                     L"\\Personal Folders\\Mail\\Deep", L"\\Store 1\\People"}));
    EXPECT_TRUE(found.reached);
    EXPECT_TRUE(found.complete);
    EXPECT_EQ(found.stores, 2);
    EXPECT_TRUE(traced("Number of PST files opened : 2"));
    EXPECT_TRUE(traced("--- PST : 'Store 1 ------------"));
}

TEST_F(Search, AsksNothingTwice) {
    addFolderBelow(addFolder(L"Mail", ItemType::Mail), L"Deep");
    addStores(3);
    outlook.server().calls().reset();
    const FoundFolders found = search();
    const long folders = static_cast<long>(found.tree.size());
    auto& calls = outlook.server().calls();
    EXPECT_EQ(calls.invocations(L"NameSpace.Folders"), 1);
    for (const wchar_t* member : {L"Folders.Item", L"MAPIFolder.Name", L"MAPIFolder.EntryID",
                                  L"MAPIFolder.DefaultItemType", L"MAPIFolder.Folders"})
        EXPECT_EQ(calls.invocations(member), folders) << member;
    EXPECT_LE(calls.lookUps(), 9) << "one look-up for each member";
    EXPECT_EQ(outlook.server().liveObjects(), 1) << "only what the running table holds";
}

TEST_F(Search, SearchesAHundredStoresAtMost) {
    struct Case {
        const wchar_t* limit;
        int more;
        long searched;
    };
    // The default store comes first in all of them.
    for (const auto& [limit, more, searched] :
         {Case{L"3", 4, 3}, Case{L"9", 0, 5}, Case{L"", 0, 5}, Case{L"0", 0, 5}, Case{L" ", 0, 5},
          Case{L"abc", 0, 5}, Case{L"-1", 0, 5}, Case{L" 2 ", 0, 2}, Case{L"1", 0, 1}, Case{L"", 115, 100},
          Case{L"7", 0, 7}}) {
        addStores(more);
        const FoundFolders found = search(limit);
        EXPECT_EQ(found.stores, searched) << limit;
        EXPECT_EQ(paths(found).size(), static_cast<size_t>(searched)) << limit;
    }
    EXPECT_TRUE(traced("Search_Outlook_ContactFolder: Limit number of pst files to 3"));
    EXPECT_FALSE(traced("Limit number of pst files to 9"));
    EXPECT_TRUE(traced("Number of PST files opened : 120"));
    EXPECT_TRUE(traced("Search_Outlook_ContactFolder: Limit of max pst files reached."));
}

TEST_F(Search, GoesOnBehindAFolderThatFails) {
    addFolderBelow(contacts, L"Below");
    struct Case {
        const wchar_t* member;
        size_t found;
    };
    for (const auto& [member, count] :
         {Case{L"MAPIFolder.DefaultItemType", 2}, Case{L"MAPIFolder.EntryID", 2}, Case{L"Folders.Item", 0},
          Case{L"MAPIFolder.Folders", 0}, Case{L"NameSpace.Folders", 0}}) {
        faults().failMember(member, {E_FAIL, L"Offline."}, 1);
        const FoundFolders found = search();
        EXPECT_TRUE(found.reached) << member;
        EXPECT_FALSE(found.complete) << member;
        EXPECT_EQ(paths(found).size(), count) << member;
        EXPECT_TRUE(traced("Error (Search_Outlook_ContactFolder): Offline. in Microsoft Outlook"));
        faults().clear();
    }
}

TEST_F(Search, EndsAtOnceWhenOutlookDies) {
    for (int i = 0; i < 50; ++i) addFolder(L"Folder " + std::to_wstring(i));
    const long all = static_cast<long>(search().tree.size());
    for (const long call : {1L, 2L, 3L, 4L, 8L, 50L, 51L, 52L, 53L, 54L, 55L}) {
        outlook.server().calls().reset();
        faults().quitAtCall(call);
        const FoundFolders found = search();
        EXPECT_FALSE(found.complete) << call;
        EXPECT_LT(static_cast<long>(found.tree.size()), all) << call;
        EXPECT_LE(outlook.server().calls().invocations(), call + 8) << call;
        faults().clear();
        if (running()) quitOutlook();
        startOutlook();
    }
}

}  // namespace

}  // namespace zelbar
