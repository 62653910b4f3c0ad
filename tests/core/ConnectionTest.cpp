#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "core/DriverState.h"
#include "tests/automation/FaultOf.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

class Connection : public DriverTest {
  protected:
    Connection() { driver().log.load(); }
};

TEST_F(Connection, TheApplicationIsKeptWhileItAnswersAndThenReplaced) {
    driver().outlook.GetApp();
    EXPECT_TRUE(traced("    GetApp: ERR1 91 (0x5B) Object variable or With block variable not set in "));
    const auto first = driver().outlook.GetApp().target();
    EXPECT_EQ(driver().outlook.GetApp().target().get(), first.get());
    outlook.quit();
    EXPECT_EQ(driver().outlook.GetApp().text(outlook::Name), L"Outlook");
    EXPECT_TRUE(traced("    GetApp: ERR1 462 "));
    EXPECT_TRUE(told.empty());
}

TEST_F(Connection, TheUserIsToldWhenTheApplicationCannotBeMade) {
    faults().failCreation(static_cast<HRESULT>(0x80080005));
    const Fault fault = faultOf([] { driver().outlook.GetApp(); });
    EXPECT_EQ(fault.number, kConnectionLost);
    EXPECT_EQ(fault.description, L"Loss of connection with Outlook.");
    EXPECT_TRUE(fault.source.ends_with(L".GetApp()")) << fault.source;
    EXPECT_EQ(told, (std::vector<std::wstring>{
                        L"Tessaria Outlook 2000 driver.|Tessaria lost his connection to Outlook.\r\nYou "
                        L"have to stop Tessaria and Outlook.\r\nThen you can restart Tessaria."}));
}

TEST_F(Connection, TheNameSpaceComesFromAFreshConnectionInThreeTries) {
    EXPECT_EQ(driver().outlook.GetNameSpace().text(outlook::Type), L"MAPI");
    outlook.quit();
    EXPECT_EQ(driver().outlook.GetNameSpace().text(outlook::Type), L"MAPI");
    EXPECT_FALSE(traced("ERR1"));
    const char* errors[] = {"    GetNameSpace: ERR1 ", "    GetNameSpace: ERR2 ", "    GetNameSpace: ERR3 "};
    for (int failures = 1; failures <= 3; ++failures) {
        faults().failMember(L"NameSpace.Type", {static_cast<HRESULT>(0x80010001)}, failures);
        const Fault fault = faultOf([] { driver().outlook.GetNameSpace(); });
        faults().clear();
        EXPECT_EQ(fault.number, failures < 3 ? 0 : kConnectionLost) << failures;
        EXPECT_TRUE(traced(errors[failures - 1]));
        EXPECT_EQ(fault.source.ends_with(L".GetNameSpace()"), failures == 3);
    }
}

TEST_F(Connection, AnItemIsLookedForInItsStoreThenInAllOthers) {
    writeCache({});
    const auto archive = mailbox.addStore(L"Archive");
    const auto people = mailbox.addFolder(archive.root, L"People", standin::outlook::ItemType::Contact);
    const auto item = mailbox.addContact(people.id, {{L"LastName", L"Byron"}});
    const std::wstring id = mailbox.entryId(item), own = mailbox.storeId(archive.id);
    addCacheStore(L"2", own);
    connector();
    using enum LookUp::Verdict;
    const auto ask = [&](const std::wstring& entry, const std::wstring& store, LookUp::Verdict verdict,
                         long stores) {
        const long before = outlook.server().calls().invocations(L"GetItemFromID");
        EXPECT_EQ(driver().outlook.GetContactFromID(entry, store, L"test", L"").verdict, verdict);
        EXPECT_EQ(outlook.server().calls().invocations(L"GetItemFromID") - before, stores) << entry << store;
    };
    ask(id, own, Found, 1);
    ask(id, L"", Found, 3);
    ask(id, mailbox.storeId(mailbox.defaultStore().id), Found, 4);
    ask(L"", own, Gone, 0);
    mailbox.eraseItem(item.id);
    // Its own store again when its turn comes: the first answer may have been a passing one.
    ask(id, own, Gone, 4);
    ask(L"zz", L"", Failed, 3);
    EXPECT_TRUE(traced("GetContactFromID: NOK"));
    EXPECT_TRUE(traced("    GetContactFromID() -2147221233 (0x8004010F) "));
}

TEST_F(Connection, AHundredStoresAreReadInTheOrderOfTheTableAndTheNextIsAnError) {
    writeCache({});
    for (int i = 2; i <= 102; ++i) addCacheStore(std::to_wstring(i / 2 * 2), L"S" + std::to_wstring(i));
    connector();
    const StoreTable& stores = driver().cache.stores();
    EXPECT_EQ(stores.at(2).storeId, L"S2");
    EXPECT_EQ(stores.at(100).storeId, L"S100");
    EXPECT_EQ(stores.storeIdOf(L"2"), L"S2") << "the first of that number";
    for (const wchar_t* none : {L"999", L""}) EXPECT_EQ(stores.storeIdOf(none), L"");
    EXPECT_TRUE(traced("  i=100"));
    EXPECT_FALSE(traced("  i=101"));
    EXPECT_TRUE(traced("Error(ReadPst): Subscript out of range in "));
}

}  // namespace

}  // namespace zelbar
