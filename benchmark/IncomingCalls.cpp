#include <filesystem>
#include <stdexcept>
#include <utility>

#include "automation/Bstr.h"
#include "automation/OutlookNames.h"
#include "automation/Variant.h"
#include "benchmark/BareClient.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Measure.h"
#include "benchmark/Replay.h"

namespace benchmark {

namespace {

namespace outlook = zelbar::outlook;
using zelbar::Bstr;
using zelbar::Server;

constexpr long kMail = 4099;

/// What a client does when somebody calls: it finds the contact and shows it.
void incomingCall(::DataConnector& driver, const std::wstring& number) {
    const auto contact = findFirst(driver, 0, number);
    requireKnown(contact);
    Bstr text;
    for (const auto member : {&::Contact::get_FullName, &::Contact::get_CompanyName,
                              &::Contact::get_MainPhoneNumber, &::Contact::get_PhotoURL})
        (contact.get()->*member)(text.put());
    Com<IDispatch> list;
    contact->get_PhoneNumbers(list.put());
    contact->get_Emails(list.put());
}

struct Asked {
    long lookUps = 0;
    long invocations = 0;
};

template <class Run>
Asked asked(const CallCounter& counter, Run&& run) {
    counter.reset();
    run();
    return {counter.lookUps(), counter.invocations()};
}

void printAsked(const char* what, const Asked& asked) {
    std::printf("| %s | %ld | %ld | %ld |\n", what, asked.lookUps, asked.invocations,
                asked.lookUps + asked.invocations);
}

/// The driver's time over that of plain clients with the same reads, of the cache and of Outlook: one that
/// asks Outlook for each name at each use, and one that knows the members' numbers, as early-bound ones do.
void compareTimes(::DataConnector& driver, const std::vector<std::wstring>& calls,
                  const ContactPlace& contact, const std::filesystem::path& cacheFile) {
    BareClient cache(cacheFile);
    Replay plain(calls, contact, Replay::Client::LateBound);
    Replay early(calls, contact, Replay::Client::EarlyBound);
    const Search caller{0, CacheRows::number(1)};
    const auto as = [&](Replay& client) {
        cache.run(caller);
        client.run();
    };
    const auto [own, late, known] =
        inTurns([&] { incomingCall(driver, caller.pattern); }, [&] { as(plain); }, [&] { as(early); });
    std::printf(
        "\n| microseconds: median (least - most) | driver | late-bound client | client that knows the numbers "
        "|\n|---|---|---|---|\n| incoming call, %zu runs | %s | %s | %s |\n\n",
        own.count(), own.text().c_str(), late.text().c_str(), known.text().c_str());
    reportAim("an incoming call over a late-bound client's", own.ratioTo(late), 0.65);
    std::printf("An incoming call over that of a client that knows the numbers: %.2f\n", own.ratioTo(known));
}

/// A configured action; mail has somebody to go to.
Com<::CallAction> actionWith(::PIMActions& actions, long id) {
    Com<IDispatch> made;
    if (FAILED(actions.NewAction(id, made.put()))) throw std::runtime_error("there is no such action");
    const auto action = made.as<::CallAction>();
    if (id != kMail) return action;
    Com<::ActionProperties> settings;
    Com<::ActionProperty> address;
    action->get_ActionProp(settings.put());
    settings->Item(zelbar::Variant(L"DestinationAddress").raw(), address.put());
    address->put_Value(zelbar::Variant(L"desk@example.com").raw());
    return action;
}

/// A walk through 25 contacts, all of them as a list, and what else a client asks for a call.
void printRoads(::DataConnector& driver, const CallCounter& counter) {
    Com<::ContactRecord> cursor;
    driver.OpenContactRecord(cursor.put());
    long kind = 0;
    const Bstr all(CacheRows::allPeople());
    Com<::Contact> found;
    cursor->FindFirst(&kind, all.get(), found.put());
    requireKnown(found);
    Com<::Contact> next;
    printAsked("one step of a walk", asked(counter, [&] { cursor->FindNext(next.put()); }));
    requireKnown(next);
    Com<::ContactRecord> list;
    driver.OpenContactRecord(list.put());
    Com<IDispatch> contacts;
    printAsked("a list of 25 contacts",
               asked(counter, [&] { list->FillContactCollection(&kind, all.get(), contacts.put()); }));
    printAsked("an unknown caller", asked(counter, [&] { findFirst(driver, 0, L"+99 1"); }));
    Com<::PIMActions> actions;
    driver.get_Actions(actions.put());
    found->put_PersonalData(zelbar::Variant(L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;").raw());
    for (const auto& [id, name] : {std::pair{4097L, "action: open the contact"},
                                   {4098L, "action: close the contact"},
                                   {kMail, "action: mail about a missed call"},
                                   {4100L, "action: journal entry"},
                                   {4101L, "action: program"}}) {
        const auto action = actionWith(*actions.get(), id);
        const auto run = [&, &action = action] {
            VARIANT_BOOL done = VARIANT_FALSE;
            ::Contact* contact = Com<::Contact>(found).detach();
            action->ExecuteAction(&contact, &done);
            if (contact) contact->Release();
        };
        run();
        printAsked(name, asked(counter, run));
    }
}

}  // namespace

void measureIncomingCalls(const Scale& scale) {
    constexpr int kPeople = 25;
    zelbar::Gateway gateway;
    const Object application = gateway.create(Server::Outlook, outlook::kProgId, outlook::kApplication);
    CacheRows rows{scale(100, 10), addContact(application, L"Byron", L"+44 20 1")};
    for (int i = 0; i < kPeople; ++i)
        rows.people.push_back(addContact(application, L"Person " + std::to_wstring(i), L"+49 9"));
    const DataFolder folder;
    folder.writeCache(rows);
    const CallCounter counter(application);
    Com<::DataConnector> driver;
    std::printf("## An incoming call, Outlook in a process of its own\n\n");
    std::printf("| calls to Outlook | name look-ups | invocations | together |\n|---|---|---|---|\n");
    printAsked("start-up", asked(counter, [&] { driver = createDriver(); }));
    const auto call = [&](long row) {
        return asked(counter, [&] { incomingCall(*driver.get(), CacheRows::number(row)); });
    };
    printAsked("first call after start-up", call(1));
    const Asked second = call(1);
    const std::vector<std::wstring> calls = counter.calls();
    printAsked("the same number again", second);
    const Asked other = call(2);
    printAsked("another number", other);
    Replay plain(calls, rows.contact, Replay::Client::LateBound);
    printAsked("plain late-bound client, the same reads", asked(counter, [&] { plain.run(); }));
    printRoads(*driver.get(), counter);
    compareTimes(*driver.get(), calls, rows.contact, folder.cacheFile());
    reportAim("name look-ups after the first call of a kind",
              static_cast<double>(second.lookUps + other.lookUps), 0);
    std::printf("\n");
}

}  // namespace benchmark
