#include "tests/search/SearchTest.h"

namespace zelbar {

namespace {

/// What becomes of cached contacts when Outlook does not give their items.
class LostContacts : public SearchTest {
  protected:
    void SetUp() override {
        for (const wchar_t* first : {L"Ada", L"Ben", L"Cy", L"Dee"})
            rows_.push_back(addListed(first, L"Smith", L"5" + std::wstring(first)));
        open(rows_);
    }
    void erase(size_t index) {
        for (const auto id : mailbox.items(defaultContacts.id))
            if (mailbox.entryId(*mailbox.item(id)) == rows_[index].entryId) mailbox.eraseItem(id);
    }
    /// A whole search: the first hit, then on to both ends.
    void walkAll() {
        first(0, L"5*");
        for (int i = 0; i < 6; ++i) next();
        cursor.call({L"MoveLast"});
        for (int i = 0; i < 6; ++i) previous();
    }

    std::vector<TestRow> rows_;
};

TEST_F(LostContacts, AStaleFirstRowGoesAndTheCallerIsUnknown) {
    outlook.server().setOption(L"PrivateBits", L"on");
    erase(0);
    const auto picture = folder.file(L"pimcontact_" + rows_[0].entryId + L".jpg");
    harness::writeFile(picture, "JPG");
    EXPECT_TRUE(notInPim(first(0, L"5*")));
    EXPECT_EQ(cacheRows(), 3);
    EXPECT_FALSE(harness::exists(picture)) << "the picture goes with the row";
    EXPECT_TRUE(traced("Contact not found in Outlook...AND DELETED FROM MDB CACHE !"));
    EXPECT_TRUE(traced("Contact deleted from mdb cache: Smith Ada -  5Ada"));
    // The deleted row is still the current one; the walk goes on behind it.
    EXPECT_EQ(fullName(next()), L"Smith, Ben");
}

TEST_F(LostContacts, StaleRowsOnTheWayGoAndTheWalkGoesOn) {
    erase(1);
    first(0, L"5*");
    execute(L"Delete From TCache Where PhoneNumber = \"5Cy\"");
    EXPECT_EQ(fullName(next()), L"Smith, Dee") << "also past those that another has deleted";
    EXPECT_EQ(cacheRows(), 2);
    erase(3);
    first(0, L"5*");
    cursor.call({L"MoveLast"});
    EXPECT_EQ(cacheRows(), 1);
    EXPECT_EQ(fullName(current()), L"Smith, Ada");
}

TEST_F(LostContacts, AnOutlookThatFailsIsLogged) {
    faults().failMember(L"GetItemFromID", {E_FAIL});
    walkAll();
    EXPECT_TRUE(traced("TimerFind() error with Outlook."));
    EXPECT_TRUE(traced("Error (FindNext): "));
    outlook.quit();
    faults().failCreation(static_cast<HRESULT>(0x80080005));
    walkAll();
    EXPECT_TRUE(traced("    GetNameSpace: ERR3 "));
}

TEST_F(LostContacts, ARowGoesOnlyWhenItsStoreWasAsked) {
    const auto other = mailbox.addStore(L"Archive");
    const std::wstring closedStore = mailbox.storeId(other.id);
    mailbox.removeStore(other.id);
    erase(0);
    // The table of stores was read before that store was added.
    execute(L"Update TCache Set StoreID = \"2\"");
    walkAll();
    EXPECT_EQ(cacheRows(), 4);
    EXPECT_EQ(fullName(first(0, L"5Ben")), L"Smith, Ben") << "found all the same";
    // It is known now, and not open.
    release();
    addCacheStore(L"2", closedStore);
    cursor = openCursor();
    walkAll();
    EXPECT_EQ(cacheRows(), 4);
}

TEST_F(LostContacts, WhatDoesNotAnswerAsAContactIsUnknown) {
    const auto team = mailbox.addDistributionList(defaultContacts.id, L"Team");
    execute(L"Update TCache Set EntryId = \"" + mailbox.entryId(team) + L"\" Where PhoneNumber = \"5Ada\"");
    EXPECT_TRUE(notInPim(first(0, L"5Ada")));
    EXPECT_EQ(found.text({L"MainPhoneNumber"}), L"5Ada");
    EXPECT_EQ(cacheRows(), 4);
    // What is read for the log alone costs a line of it and nothing else.
    faults().failMember(L"FileAs", {E_FAIL});
    EXPECT_FALSE(notInPim(first(0, L"5Ben")));
}

}  // namespace

}  // namespace zelbar
