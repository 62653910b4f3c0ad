#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

/// What becomes of cached contacts when Outlook does not give their items.
class LostContacts : public DriverTest {
  protected:
    void SetUp() override {
        for (const wchar_t* first : {L"Ada", L"Ben", L"Cy", L"Dee"})
            rows_.push_back(addListed(first, L"Smith", L"5" + std::wstring(first)));
        writeCache(rows_);
        cursor_ = openCursor();
    }
    void erase(size_t index) {
        auto& mailbox = outlook.mailbox();
        const auto contacts = mailbox.specialFolder(standin::outlook::SpecialFolder::Contacts);
        for (const auto id : mailbox.items(contacts.id))
            if (mailbox.entryId(*mailbox.item(id)) == rows_[index].entryId) mailbox.eraseItem(id);
    }
    /// A whole search: the first hit, then on to both ends.
    void walkAll() {
        findFirst(*cursor_.get(), 0, L"5*");
        for (int i = 0; i < 6; ++i) findNext(*cursor_.get());
        cursor_->MoveLast();
        for (int i = 0; i < 6; ++i) findPrevious(*cursor_.get());
    }
    void TearDown() override {
        cursor_.reset();
        DriverTest::TearDown();
    }

    std::vector<TestRow> rows_;
    Com<::ContactRecord> cursor_;
};

TEST_F(LostContacts, AStaleFirstRowGoesAndTheCallerIsUnknown) {
    erase(0);
    EXPECT_TRUE(notInPim(findFirst(*cursor_.get(), 0, L"5*").get()));
    EXPECT_EQ(cacheRows(), 3);
    EXPECT_TRUE(traced("Contact not found in Outlook...AND DELETED FROM MDB CACHE !"));
    EXPECT_TRUE(traced("Contact deleted from mdb cache: Smith Ada -  5Ada"));
    // The deleted row is still the current one; the walk goes on behind it.
    EXPECT_EQ(fullName(findNext(*cursor_.get()).get()), L"Smith, Ben");
}

TEST_F(LostContacts, StaleRowsOnTheWayGoAndTheWalkGoesOn) {
    erase(1);
    erase(2);
    findFirst(*cursor_.get(), 0, L"5*");
    EXPECT_EQ(fullName(findNext(*cursor_.get()).get()), L"Smith, Dee");
    EXPECT_EQ(cacheRows(), 2);
}

TEST_F(LostContacts, AStaleLastRowGoes) {
    erase(3);
    findFirst(*cursor_.get(), 0, L"5*");
    cursor_->MoveLast();
    EXPECT_EQ(cacheRows(), 3);
    Com<::Contact> current;
    cursor_->get_Contact(current.put());
    EXPECT_EQ(fullName(current.get()), L"Smith, Ada");
}

TEST_F(LostContacts, NotFoundWithPrivateBitsIsNotFound) {
    outlook.server().setOption(L"PrivateBits", L"on");
    erase(0);
    findFirst(*cursor_.get(), 0, L"5*");
    EXPECT_EQ(cacheRows(), 3);
}

TEST_F(LostContacts, AnOutlookThatFailsLosesNoRow) {
    const HRESULT failures[] = {static_cast<HRESULT>(0x80010001),
                                static_cast<HRESULT>(0x8001010A),
                                static_cast<HRESULT>(0x80010108),
                                static_cast<HRESULT>(0x800706BA),
                                static_cast<HRESULT>(0x800706BE),
                                static_cast<HRESULT>(0x8004011C),
                                static_cast<HRESULT>(0x8004011D),
                                E_ACCESSDENIED,
                                E_FAIL,
                                static_cast<HRESULT>(0x80070057)};
    for (const HRESULT failure : failures) {
        for (const bool described : {false, true}) {
            outlook.server().faults().clear();
            outlook.server().faults().failMember(
                L"GetItemFromID",
                described ? standin::Failure{failure, L"It failed."} : standin::Failure{failure});
            walkAll();
            EXPECT_TRUE(notInPim(findFirst(*cursor_.get(), 0, L"5Ada").get())) << std::hex << failure;
            EXPECT_EQ(cacheRows(), 4) << std::hex << failure;
        }
    }
    EXPECT_TRUE(traced("TimerFind() error with Outlook."));
    EXPECT_TRUE(traced("Error (FindNext): "));
}

TEST_F(LostContacts, NoOutlookAtAllLosesNoRow) {
    outlook.quit();
    outlook.server().faults().failCreation(static_cast<HRESULT>(0x80080005));
    walkAll();
    EXPECT_EQ(cacheRows(), 4);
    EXPECT_TRUE(traced("    GetNameSpace: ERR3 "));
    outlook.server().faults().clear();
    EXPECT_EQ(fullName(findFirst(*cursor_.get(), 0, L"5Ben").get()), L"Smith, Ben");
}

TEST_F(LostContacts, OutlookQuittingAtAnyCallOfASearchLosesNoRow) {
    outlook.server().calls().reset();
    findFirst(*cursor_.get(), 0, L"5*");
    const long calls = outlook.server().calls().invocations();
    ASSERT_GT(calls, 5);
    for (long n = 1; n <= calls; ++n) {
        outlook.server().faults().quitAtCall(n);
        findFirst(*cursor_.get(), 0, L"5*");
        outlook.server().faults().clear();
        EXPECT_EQ(cacheRows(), 4) << n;
        EXPECT_EQ(fullName(findFirst(*cursor_.get(), 0, L"5Cy").get()), L"Smith, Cy") << n;
    }
}

TEST_F(LostContacts, OneStoreThatFailsKeepsTheRowThoughTheOthersDoNotKnowTheItem) {
    const auto other = outlook.mailbox().addStore(L"Archive");
    const std::wstring closedStore = outlook.mailbox().storeId(other.id);
    finish();
    cursor_.reset();
    addCacheStore(L"2", closedStore);
    cursor_ = openCursor();
    outlook.mailbox().removeStore(other.id);
    erase(0);
    findFirst(*cursor_.get(), 0, L"5*");
    EXPECT_EQ(cacheRows(), 4);
}

TEST_F(LostContacts, ALockedRowStaysAndTheWalkEnds) {
    for (size_t i = 0; i < 4; ++i) erase(i);
    dao.server().faults().failMember(
        L"Recordset.Delete", {static_cast<HRESULT>(0x800A0C92), L"Could not update; currently locked."});
    findFirst(*cursor_.get(), 0, L"5*");
    EXPECT_FALSE(findNext(*cursor_.get()));
    EXPECT_EQ(cacheRows(), 4);
    EXPECT_TRUE(traced("Could not update; currently locked."));
    dao.server().faults().clear();
}

TEST_F(LostContacts, ARowThatCannotBeReadIsNotDeleted) {
    dao.server().faults().failMember(L"Field.Value",
                                     {static_cast<HRESULT>(0x800A0C7D), L"Changed by another."});
    walkAll();
    dao.server().faults().clear();
    EXPECT_EQ(cacheRows(), 4);
}

TEST_F(LostContacts, RowsDeletedByAnotherArePassedOver) {
    findFirst(*cursor_.get(), 0, L"5*");
    execute(L"Delete From TCache Where PhoneNumber = \"5Ben\"");
    EXPECT_EQ(fullName(findNext(*cursor_.get()).get()), L"Smith, Cy");
}

TEST_F(LostContacts, SomethingElseThanAContactIsUnknown) {
    auto& mailbox = outlook.mailbox();
    const auto team = mailbox.addDistributionList(
        mailbox.specialFolder(standin::outlook::SpecialFolder::Contacts).id, L"Team");
    execute(L"Update TCache Set EntryId = \"" + mailbox.entryId(team) + L"\" Where PhoneNumber = \"5Ada\"");
    const auto contact = findFirst(*cursor_.get(), 0, L"5Ada");
    EXPECT_TRUE(notInPim(contact.get()));
    EXPECT_EQ(mainNumber(contact.get()), L"5Ada");
    EXPECT_EQ(cacheRows(), 4);
}

}  // namespace

}  // namespace zelbar
