#include "automation/Bstr.h"
#include "automation/OutlookNames.h"
#include "benchmark/Benchmarks.h"
#include "benchmark/Measure.h"
#include "benchmark/Replay.h"

namespace benchmark {

namespace {

namespace outlook = zelbar::outlook;
using zelbar::Bstr;
using zelbar::Server;

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

void compareTimes(::DataConnector& driver, const std::vector<std::wstring>& calls,
                  const ContactPlace& contact) {
    Replay plain(calls, contact, Replay::Names::AskedEachTime);
    const auto [withDriver, withoutDriver] =
        inTurns([&] { incomingCall(driver, CacheRows::number(1)); }, [&] { plain.run(); });
    std::printf(
        "\n| time, microseconds: median (least - most) | driver | plain late-bound client "
        "|\n|---|---|---|\n");
    std::printf("| incoming call, %zu runs | %s | %s |\n", withDriver.count(), withDriver.text().c_str(),
                withoutDriver.text().c_str());
}

/// One property of one item, again and again: what a call across the process border costs.
void compareOneRead(const Object& application, const ContactPlace& contact) {
    const auto item = application.object(outlook::GetNamespace, L"MAPI")
                          .object(outlook::GetItemFromID, contact.entryId, contact.storeId);
    zelbar::Gateway gateway;
    const Object remembered(gateway, Server::Outlook, item.target(), outlook::kContact);
    const Object plain(gateway, Server::Outlook, item.target(), zelbar::kUnknownClass);
    const auto [first, second] =
        inTurns([&] { remembered.text(outlook::FirstName); }, [&] { plain.text(outlook::FirstName); });
    std::printf("| one property read, %zu runs | %s | %s |\n", first.count(), first.text().c_str(),
                second.text().c_str());
}

}  // namespace

void measureIncomingCalls() {
    zelbar::Gateway gateway;
    const Object application = gateway.create(Server::Outlook, outlook::kProgId, outlook::kApplication);
    const ContactPlace contact = addContact(application, L"Byron", L"+44 20 1");
    const DataFolder folder;
    folder.writeCache({100, contact});
    const auto driver = createDriver();
    const CallCounter counter(application);
    const auto call = [&](long row) {
        return asked(counter, [&] { incomingCall(*driver.get(), CacheRows::number(row)); });
    };

    std::printf("## An incoming call, Outlook in a process of its own\n\n");
    std::printf("| calls to Outlook | name look-ups | invocations | together |\n|---|---|---|---|\n");
    printAsked("first call after start-up", call(1));
    const Asked second = call(1);
    const std::vector<std::wstring> calls = counter.calls();
    printAsked("the same number again", second);
    const Asked other = call(2);
    printAsked("another number", other);
    Replay plain(calls, contact, Replay::Names::AskedEachTime);
    printAsked("plain late-bound client, the same reads", asked(counter, [&] { plain.run(); }));
    compareTimes(*driver.get(), calls, contact);
    compareOneRead(application, contact);
    std::printf("\n");
    reportAim("no name look-up after the first call of a kind", second.lookUps == 0 && other.lookUps == 0);
    std::printf("\n");
}

}  // namespace benchmark
