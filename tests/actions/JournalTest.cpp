#include <windows.h>

#include <oleauto.h>

#include "actions/CallTime.h"
#include "support/Clock.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

constexpr double kMinute = 1.0 / (24 * 60);

enum class Who { Known, Gone, Nameless, Unknown, Empty, Nobody };

class Journal : public ActionTest {
  protected:
    Com<::Contact> contact(Who who, const std::wstring& callInformation) {
        switch (who) {
            case Who::Unknown:
                return unknown(callInformation);
            case Who::Nobody:
                return {};
            case Who::Empty: {
                const auto empty = makeObject<cContact>();
                empty->Contact_PersonalData(callInformation);
                return empty;
            }
            default:
                break;
        }
        if (who == Who::Gone)
            anna = addContact({{L"FullName", L"Gone"}, {L"BusinessTelephoneNumber", L"555 100"}});
        if (who == Who::Nameless) anna = addContact({{L"BusinessTelephoneNumber", L"555 100"}});
        const auto result = known(callInformation);
        if (who == Who::Gone) outlook.mailbox().eraseItem(anna.id);
        return result;
    }
};

TEST_F(Journal, EveryCallIsWrittenWhole) {
    const std::wstring link = L" \n\rContact:  <Outlook://Personal Folders/Contacts/~Anna Berg> ";
    const struct {
        Who who;
        const wchar_t* type;
        std::wstring subject;
        std::wstring link;
    } cases[] = {
        {Who::Known, L"TYPE=incoming;", L"Anna Berg called", link},
        {Who::Known, L"TYPE=outgoing;", L"Call to Anna Berg", link},
        {Who::Known, L"TYPE=INCOMING;", L"Call with Anna Berg", link},
        {Who::Known, L"", L"Call with Anna Berg", link},
        {Who::Gone, L"TYPE=incoming;", L"555 100 called", L""},
        {Who::Nameless, L"TYPE=incoming;", L"555 100 called", L""},
        {Who::Unknown, L"TYPE=outgoing;", L"Call to 0123", L""},
        {Who::Empty, L"TYPE=incoming;", L" called", L""},
        {Who::Nobody, L"", L"Call with ", L""},
    };
    const struct {
        const wchar_t* fields;
        double start;  // 0: now
    } times[] = {
        {L"", 0},
        {L"START=2003-02-01 10:00:00;", 0},
        {L"START=2003-02-01 10:00:00;DURATION=;", 0},
        {L"START=2003-02-01 10:00:00;DURATION=42;", 37653 + 10.0 / 24},
        {L"DURATION=long;START=2003-02-01;", 37653},
    };
    const auto journal = action(kJournal);
    for (const auto& c : cases) {
        for (const auto& time : times) {
            if (c.who == Who::Nobody && time.start != 0) continue;
            const auto before = saved(SpecialFolder::Journal).size();
            run(*journal, contact(c.who, c.type + std::wstring(time.fields)));
            const auto entries = saved(SpecialFolder::Journal);
            ASSERT_EQ(entries.size(), before + 1) << time.fields;
            const auto& entry = entries.back();
            EXPECT_EQ(entry.field(L"Subject"), c.subject);
            EXPECT_EQ(entry.field(L"Body"), c.subject + c.link);
            const double start = std::stod(entry.field(L"Start")), end = std::stod(entry.field(L"End"));
            EXPECT_NEAR(end, currentDate(), kMinute);
            EXPECT_NEAR(start, time.start != 0 ? time.start : end, 1e-6) << time.fields;
        }
    }
}

TEST_F(Journal, ADateThatIsNoneFailsTheActionAndLeavesNothing) {
    for (const wchar_t* start : {L"", L"START=;", L"START=yesterday;", L"START=2003-02-01T10:00:00;"})
        run(*action(kJournal), unknown(std::wstring(L"DURATION=1;") + start));
    EXPECT_TRUE(saved(SpecialFolder::Journal).empty());
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionStoreInJournal): Type mismatch in "));
}

TEST_F(Journal, DatesAreReadAsTheSystemWritesThem) {
    run(*action(kJournal), unknown(L"DURATION=1;START=" + dateText(39000.25) + L";"));
    EXPECT_NEAR(std::stod(saved(SpecialFolder::Journal).at(0).field(L"Start")), 39000.25, 1e-6);
}

TEST_F(Journal, AStartInTheFutureIsOutlooksToJudge) {
    const std::wstring call = L"DURATION=1;START=2100-01-01;";
    run(*action(kJournal), unknown(call));
    ASSERT_EQ(saved(SpecialFolder::Journal).size(), 1u);
    outlook.server().setOption(L"JournalEnd", L"raise");
    run(*action(kJournal), unknown(call));
    EXPECT_EQ(saved(SpecialFolder::Journal).size(), 1u);
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionStoreInJournal): "));
}

TEST_F(Journal, TheTraceTellsEachStep) {
    run(*action(kJournal), known(L"TYPE=incoming;"));
    for (const char* line :
         {"JOURNAL ---------------", "Storing in journal call from Berg, Anna", "Name = Anna Berg",
          "Contact of call found and stored...", "Message: Anna Berg called..."})
        EXPECT_TRUE(traced(line)) << line;
    run(*action(kJournal), unknown());
    EXPECT_TRUE(traced("Not in PIM: Reinit..."));
    run(*action(kJournal), contact(Who::Gone, L""));
    EXPECT_TRUE(traced("Journal : Item get from ID is nothing !"));
}

TEST_F(Journal, AStoreThatIsCalledOutlookIsLeftOutOfTheLink) {
    auto& mailbox = outlook.mailbox();
    const auto store = mailbox.addStore(L"Outlook");
    const auto customers =
        mailbox.ensureFolder(store, L"Customers\\North", standin::outlook::ItemType::Contact);
    anna = mailbox.addContact(customers.id, {{L"FullName", L"Anna Berg"}});
    const auto contact = makeObject<cContact>();
    contact->SetValues(
        driver()
            .outlook.GetContactFromID(mailbox.entryId(anna), mailbox.storeId(store.id), L"test", L"")
            .item);
    run(*action(kJournal), contact);
    EXPECT_EQ(saved(SpecialFolder::Journal).at(0).field(L"Body"),
              L"Call with Anna Berg \n\rContact:  <Outlook://Customers/North/~Anna Berg> ");
}

TEST_F(Journal, DataThatIsNoTextSaysNothing) {
    const auto contact = unknown();
    Variant null;
    null.put()->vt = VT_NULL;
    for (const Variant& data : {Variant(), null, Variant(42), Variant(Com<IDispatch>(contact))}) {
        contact->Contact_PersonalData(data);
        run(*action(kJournal), contact);
        EXPECT_EQ(saved(SpecialFolder::Journal).back().field(L"Subject"), L"Call with 0123");
    }
    EXPECT_EQ(saved(SpecialFolder::Journal).size(), 4u);
    contact->Contact_PersonalData(Variant());
    const auto tooLong = unknown(std::wstring(32768, L'x'));
    run(*action(kJournal), tooLong);
    EXPECT_EQ(saved(SpecialFolder::Journal).size(), 4u);
    EXPECT_TRUE(traced("Error (ExecuteAction - ActionStoreInJournal): Overflow in "));
}

}  // namespace

}  // namespace zelbar
