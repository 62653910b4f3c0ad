#include "dialogs/FolderSearch.h"

#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

class Search : public DialogTest {
  protected:
    Search() { driver().log.load(); }

    static FoundFolders search(const std::wstring& limit = {}) {
        FolderSearch search(driver().outlook, driver().log, limit);
        while (search.step()) {
        }
        return search.take();
    }
    static std::wstring paths(FoundFolders found) {
        std::wstring result;
        for (const cfolder* folder : contactsFolders(found.tree)) result += folder->FullName + L"|";
        return result;
    }
    void addStores(int count) {
        for (int i = 1; i <= count; ++i)
            outlook.mailbox().addFolder(outlook.mailbox().addStore(L"Store " + std::to_wstring(i)).root,
                                        L"People", ItemType::Contact);
    }
};

TEST_F(Search, WalksDepthFirstThroughAllStoresAndAsksNothingTwice) {
    addFolderBelow(addFolderBelow(contacts, L"Kunden & Źródła"), L"Ügyfelek");
    addFolderBelow(addFolder(L"Mail", ItemType::Mail), L"Deep");
    addStores(1);
    outlook.server().calls().reset();
    const FoundFolders found = search();
    EXPECT_EQ(paths(found),
              L"\\Personal Folders\\Contacts|\\Personal Folders\\Contacts\\Kunden & Źródła|"
              L"\\Personal Folders\\Contacts\\Kunden & Źródła\\Ügyfelek|\\Personal Folders\\Mail\\Deep|"
              L"\\Store 1\\People|");
    EXPECT_TRUE(found.reached && found.complete);
    EXPECT_TRUE(traced("--- PST : 'Store 1 ------------"));
    // Five calls a folder, one more for one of contacts, some for each store.
    FoundFolders counted = found;
    EXPECT_LE(outlook.server().calls().invocations(),
              static_cast<long>(5 * found.tree.size() + contactsFolders(counted.tree).size()) + 2 * 2 + 3);
    EXPECT_EQ(outlook.server().liveObjects(), 1) << "only what the running table holds";
}

TEST_F(Search, SearchesAHundredStoresAtMost) {
    addStores(4);
    for (const auto& [limit, searched] : {std::pair(L"3", 3L), {L"9", 5L}, {L"0", 5L}, {L"abc", 5L}})
        EXPECT_EQ(search(limit).stores, searched) << limit;
    addStores(96);
    EXPECT_EQ(search().stores, 100);
    EXPECT_TRUE(traced("Search_Outlook_ContactFolder: Limit number of pst files to 3"));
    EXPECT_TRUE(traced("Number of PST files opened : 101"));
    EXPECT_TRUE(traced("Search_Outlook_ContactFolder: Limit of max pst files reached."));
}

TEST_F(Search, EndsSoonWhenOutlookDies) {
    for (const long call : {2L, 8L, 20L}) {
        outlook.server().calls().reset();
        faults().quitAtCall(call);
        EXPECT_FALSE(search().complete) << call;
        EXPECT_LE(outlook.server().calls().invocations(), call + 8) << call;
        faults().clear();
        quitOutlook();
        startOutlook();
    }
}

}  // namespace

}  // namespace zelbar
