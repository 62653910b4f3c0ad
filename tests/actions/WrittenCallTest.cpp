#include <array>
#include <stdexcept>

#include "actions/CallTime.h"
#include "search/TaggedValue.h"
#include "support/Clock.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

constexpr double kMinute = 1.0 / (24 * 60);
constexpr double kFirstOfFebruary = 37653;  // 2003

/// The two actions that put a call into words: the journal entry and the mail.
using WrittenCall = ActionTest;

TEST_F(WrittenCall, IsWrittenWhole) {
    const std::wstring link = L"\n\rContact:  <Outlook://Personal Folders/Contacts/~Anna Berg> ";
    const auto incoming = known(L"TYPE=incoming;"), outgoing = known(L"TYPE=outgoing;"), undirected = known();
    anna = addContact({{L"BusinessTelephoneNumber", L"555 200"}});
    const auto nameless = known(L"TYPE=incoming;");
    anna = addContact({{L"FullName", L"Gone"}, {L"BusinessTelephoneNumber", L"555 300"}});
    const auto gone = known(L"TYPE=incoming;");
    mailbox.eraseItem(anna.id);
    const struct {
        Object contact;
        const wchar_t *text, *name;
        bool linked;
    } cases[] = {
        {incoming, L"Anna Berg called", L"Anna Berg", true},
        {outgoing, L"Call to Anna Berg", L"Anna Berg", true},
        {undirected, L"Call with Anna Berg", L"Anna Berg", true},
        {nameless, L"555 200 called", L"555 200", false},
        {gone, L"555 300 called", L"555 300", false},
        {unknown(L"TYPE=outgoing;"), L"Call to 0123", L"0123", false},
        {{}, L"Call with ", L"", false},
    };
    size_t entries = 0;
    for (const auto& c : cases) {
        const std::wstring text = c.text;
        run(action(kJournal), c.contact);
        ASSERT_EQ(saved(SpecialFolder::Journal).size(), ++entries);
        const auto entry = saved(SpecialFolder::Journal).back();
        EXPECT_EQ(entry.field(L"Subject"), text);
        EXPECT_EQ(entry.field(L"Body"), text + (c.linked ? L" " + link : L""));

        const DATE before = currentDate();
        run(action(kMail, {{L"DestinationAddress", L"desk@example.com"}}), c.contact);
        const auto mail = saved(SpecialFolder::SentMail).back();
        EXPECT_EQ(mail.field(L"Subject"), std::wstring(L"Call with ") + c.name);
        const std::wstring body = mail.field(L"Body");
        const auto isOf = [&](DATE moment) {
            return body ==
                   text + L" on " + dayText(moment) + L" at " + timeText(moment) + (c.linked ? link : L"");
        };
        EXPECT_TRUE(isOf(before) || isOf(currentDate())) << body;
        ASSERT_EQ(mail.recipients.size(), 1u);
        EXPECT_EQ(mail.recipients[0].name, L"desk@example.com");
    }
    for (const char* line :
         {"Storing in journal call from Berg, Anna", "Name = Anna Berg", "Message: Anna Berg called...",
          "Not in PIM: Reinit...", "Journal : Item get from ID is nothing !", "Body = Anna Berg called on ",
          "Sending mail to desk@example.com called by Berg, Anna", "Mail sent...", "Item is nothing..."})
        EXPECT_TRUE(traced(line)) << line;
}

TEST_F(WrittenCall, AnEntryEndsNowAndStartsWhereACallOfSomeLengthBegan) {
    EXPECT_EQ(dayText(39000.25) + L" " + timeText(39000.25), dateText(39000.25));
    const struct {
        std::wstring fields;
        double start;  // 0: now
    } cases[] = {
        {L"START=2003-02-01 10:00:00;", 0},
        {L"START=2003-02-01 10:00:00;DURATION=42;", kFirstOfFebruary + 10.0 / 24},
        {L"DURATION=1;START=" + dateText(39000.25) + L";", 39000.25},  // as the system writes dates
    };
    for (const auto& c : cases) {
        run(action(kJournal), known(c.fields));
        const auto entry = saved(SpecialFolder::Journal).back();
        const double start = std::stod(entry.field(L"Start")), end = std::stod(entry.field(L"End"));
        EXPECT_NEAR(end, currentDate(), kMinute) << c.fields;
        EXPECT_NEAR(start, c.start != 0 ? c.start : end, 1e-6) << c.fields;
    }
}

TEST_F(WrittenCall, AStoreThatIsCalledOutlookIsLeftOutOfTheLink) {
    const auto store = mailbox.addStore(L"Outlook");
    const auto customers =
        mailbox.ensureFolder(store, L"Customers\\North", standin::outlook::ItemType::Contact);
    anna = mailbox.addContact(customers.id, {{L"FullName", L"Anna Berg"}});
    run(action(kJournal), known({}, mailbox.storeId(store.id)));
    EXPECT_EQ(saved(SpecialFolder::Journal).at(0).field(L"Body"),
              L"Call with Anna Berg \n\rContact:  <Outlook://Customers/North/~Anna Berg> ");
}

TEST(TaggedValue, ReadsOneField) {
    const std::array<const wchar_t*, 3> cases[] = {
        {L"TYPE=outgoing;START=01/02/2003 10:00;", L"START=", L"01/02/2003 10:00"},
        {L"TYPE=incoming", L"TYPE=", L"incomin"},  // not closed: the last character is lost
        {L"type=incoming;", L"TYPE=", L""},
        {L"MYTYPE=a;TYPE=b;", L"TYPE=", L"a"},  // found within a longer key
    };
    for (const auto& [data, key, expected] : cases) EXPECT_EQ(GetTaggedValue(data, key), expected) << data;
    const std::wstring longest = L"A=1;" + std::wstring(32767 - 4, L'x');
    EXPECT_EQ(GetTaggedValue(longest, L"A="), L"1");
    EXPECT_THROW(GetTaggedValue(longest + L"x", L"A="), std::overflow_error);
}

}  // namespace

}  // namespace zelbar
