#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "core/DriverState.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

int boxes = 0;
std::wstring lastBox;

class Connection : public DriverTest {
  protected:
    Connection() {
        boxes = 0;
        driver().log.load();
        driver().user.messageBox = [](const std::wstring& text, const std::wstring& title, UINT) {
            ++boxes;
            lastBox = title + L"|" + text;
            return IDOK;
        };
    }
    standin::FaultScript& faults() { return outlook.server().faults(); }
    /// What asking for something ends with; number 0 when it works.
    template <class Question>
    static Fault faultFrom(Question&& question) {
        try {
            question();
            return {};
        } catch (const Fault& fault) {
            return fault;
        }
    }
};

TEST_F(Connection, TheApplicationIsKeptWhileItAnswers) {
    driver().outlook.GetApp();
    EXPECT_TRUE(traced("    GetApp: ERR1 91 (0x5B) Object variable or With block variable not set in "));
    const auto first = driver().outlook.GetApp().target();
    EXPECT_EQ(driver().outlook.GetApp().target().get(), first.get());
    EXPECT_EQ(boxes, 0);
}

TEST_F(Connection, AnApplicationThatHasGoneIsReplacedWithoutAWord) {
    driver().outlook.GetApp();
    outlook.quit();
    EXPECT_EQ(driver().outlook.GetApp().text(outlook::Name), L"Outlook");
    EXPECT_TRUE(traced("    GetApp: ERR1 462 "));
    EXPECT_EQ(boxes, 0);
}

TEST_F(Connection, TheUserIsToldWhenTheApplicationCannotBeMade) {
    faults().failCreation(static_cast<HRESULT>(0x80080005));
    const Fault fault = faultFrom([] { driver().outlook.GetApp(); });
    EXPECT_EQ(fault.number, kConnectionLost);
    EXPECT_EQ(fault.description, L"Loss of connection with Outlook.");
    EXPECT_TRUE(fault.source.ends_with(L".GetApp()")) << fault.source;
    EXPECT_EQ(boxes, 1);
    EXPECT_EQ(lastBox,
              L"Tessaria Outlook 2000 driver.|Tessaria lost his connection to Outlook.\r\nYou have to stop "
              L"Tessaria and Outlook.\r\nThen you can restart Tessaria.");
}

TEST_F(Connection, TheNameSpaceComesFromAFreshConnection) {
    const Object first = driver().outlook.GetNameSpace();
    EXPECT_EQ(first.text(outlook::Type), L"MAPI");
    EXPECT_TRUE(traced("    GetNameSpace: OK"));
    outlook.quit();
    EXPECT_EQ(driver().outlook.GetNameSpace().text(outlook::Type), L"MAPI");
    EXPECT_FALSE(traced("ERR1"));
}

TEST_F(Connection, TheNameSpaceIsTriedThreeTimes) {
    const struct {
        int failures;
        const char* lastError;
        bool works;
    } cases[] = {{1, "    GetNameSpace: ERR1 ", true},
                 {2, "    GetNameSpace: ERR2 ", true},
                 {3, "    GetNameSpace: ERR3 ", false}};
    for (const auto& c : cases) {
        faults().failMember(L"NameSpace.Type", {static_cast<HRESULT>(0x80010001)}, c.failures);
        const Fault fault = faultFrom([] { driver().outlook.GetNameSpace(); });
        faults().clear();
        EXPECT_EQ(fault.number == 0, c.works) << c.failures;
        EXPECT_TRUE(traced(c.lastError));
        EXPECT_EQ(fault.source.ends_with(L".GetNameSpace()"), !c.works);
    }
    EXPECT_EQ(boxes, 0);
}

TEST_F(Connection, NoOutlookHasTheNameSpaceFailAtTheThirdStage) {
    faults().failCreation(REGDB_E_CLASSNOTREG);
    EXPECT_EQ(faultFrom([] { driver().outlook.GetNameSpace(); }).number, kConnectionLost);
    // The second stage has no application to ask.
    EXPECT_TRUE(traced("    GetNameSpace: ERR2 91 "));
    EXPECT_EQ(boxes, 0);
}

TEST_F(Connection, AnItemIsLookedForInItsStoreThenInAllOthers) {
    writeCache({});
    auto& mailbox = outlook.mailbox();
    const auto archive = mailbox.addStore(L"Archive");
    const auto people = mailbox.addFolder(archive.root, L"People", standin::outlook::ItemType::Contact);
    const auto item = mailbox.addContact(people.id, {{L"LastName", L"Byron"}});
    const std::wstring id = mailbox.entryId(item);
    addCacheStore(L"2", mailbox.storeId(archive.id));
    connector();
    const std::wstring defaultStore = mailbox.storeId(mailbox.defaultStore().id);
    const auto ask = [&](const std::wstring& entry, const std::wstring& store) {
        return driver().outlook.GetContactFromID(entry, store, L"test", L"").verdict;
    };
    using enum LookUp::Verdict;
    EXPECT_EQ(ask(id, mailbox.storeId(archive.id)), Found);
    EXPECT_EQ(ask(id, L""), Found);
    EXPECT_EQ(ask(id, defaultStore), Found);
    const long before = outlook.server().calls().invocations(L"GetItemFromID");
    EXPECT_EQ(ask(L"", defaultStore), Gone);
    EXPECT_EQ(outlook.server().calls().invocations(L"GetItemFromID"), before);
    mailbox.eraseItem(item.id);
    EXPECT_EQ(ask(id, L""), Gone);
    EXPECT_EQ(ask(L"zz", L""), Failed);
    EXPECT_TRUE(traced("GetContactFromID: NOK"));
    EXPECT_TRUE(traced("    GetContactFromID() -2147221233 (0x8004010F) "));
}

}  // namespace

}  // namespace zelbar
