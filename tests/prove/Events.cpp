#include "tests/prove/Events.h"

#include "standin/common/Error.h"
#include "standin/common/FaultScript.h"
#include "standin/common/MemberTable.h"
#include "tests/prove/Imports.h"
#include "tests/prove/Stage.h"

namespace prove {

namespace {

using standin::Error;
using enum Kind;

constexpr long code(unsigned long number) {
    return static_cast<long>(number);
}

const std::set<Kind> kCalls = {Outlook, Dao};
const std::set<Kind> kServers = {Outlook, Dao, OutlookName, DaoName, Activation};
const std::set<Kind> kWindows = {Registry, File, Process};
const std::set<Kind> kWaits = {Outlook, Dao, OutlookName, DaoName, Activation, Yield, OutlookEnd, DaoEnd};

constexpr long kNotFound = code(0x8004010F), kBusy = code(0x80010001), kBusyToo = code(0x8001010A);
constexpr long kServerGone = code(0x800706BA);

}  // namespace

const std::vector<Event> kFaults = {
    {.name = "gone", .at = kCalls, .isShort = true, .code = kNotFound},
    {.name = "gone-bits", .at = {Outlook}, .code = code(0x8E64010F), .description = L"Not found."},
    {.name = "gone-all", .at = {OutlookItem}, .isShort = true, .code = kNotFound, .lasts = true},
    {.name = "rejected", .at = kServers, .code = kBusy},
    {.name = "rejected-once", .at = {Outlook}, .code = kBusy, .deadlines = true},
    {.name = "rejected-all", .at = {Outlook}, .code = kBusyToo, .lasts = true, .deadlines = true},
    {.name = "late", .at = {Outlook}, .deadlines = true, .milliseconds = 60'000},
    {.name = "unavailable", .at = kServers, .code = kServerGone},
    {.name = "dead", .at = kServers, .isShort = true, .code = kServerGone, .kills = true},
    {.name = "fails", .at = kServers, .code = E_FAIL},
    {.name = "described", .at = kCalls, .code = E_FAIL, .description = L"The operation failed."},
    {.name = "no-memory", .at = kServers, .code = E_OUTOFMEMORY},
    {.name = "array", .at = kCalls, .answer = VT_ARRAY | VT_I4},
    {.name = "null", .at = kCalls, .answer = VT_NULL},
    {.name = "empty", .at = kCalls, .answer = VT_EMPTY},
    {.name = "nothing", .at = kCalls, .answer = VT_DISPATCH},
    {.name = "unregistered", .at = {Activation}, .isShort = true, .code = REGDB_E_CLASSNOTREG},
    {.name = "denied", .at = kWindows, .isShort = true, .code = ERROR_ACCESS_DENIED},
    {.name = "missing", .at = {File}, .isShort = true, .code = ERROR_FILE_NOT_FOUND},
    {.name = "no-resources", .at = kWindows, .code = ERROR_NO_SYSTEM_RESOURCES},
    {.name = "full", .at = {File}, .code = ERROR_DISK_FULL},
    {.name = "no-room", .at = {Memory, Kind::Window}, .isShort = true, .code = ERROR_NOT_ENOUGH_MEMORY},
};

namespace {

// ---- What a client does while it waits. What it finds meanwhile is not what it goes on with.

void search(Client& c) {
    const auto kept = c.contact;
    c.first(L"61");
    c.contact = kept;
}

void stepOn(Client& c) {
    const auto kept = c.contact;
    c.next();
    c.contact = kept;
}

/// On another cursor: of this driver, or of one more.
template <bool kSameDriver>
void searchBeside(Client& c) {
    Client other(c.module);
    if (kSameDriver) other.driver = c.driver;
    other.open();
    other.first(L"61");
}

void releaseActions(Client& c) {
    c.action.reset();
    c.actions.reset();
}

void startSecond(Client& c) {
    Client other(c.module);
    other.start();
    c.second = other.driver;
}

void writeJournal(Client& c) {
    Client other(c.module);
    other.driver = c.driver;
    other.perform(4100, c.contact, {});
}

void exportAll(Client& c) {
    const Variant path(Stage::current().directoryFile()), name(L"");
    c.get(c.driver, &::DataConnector::SynchronizeExportFolder, path.raw(), name.raw(), VARIANT{});
}

Event call(const char* name, void (*meanwhile)(Client&), bool isShort = false) {
    return {.name = name, .at = kWaits, .isShort = isShort, .meanwhile = meanwhile};
}

}  // namespace

const std::vector<Event> kIncoming = {
    call("search", search, true),
    call("search-on-another", searchBeside<true>),
    call("next", stepOn),
    call(
        "numbers", [](Client& c) { c.get(c.contact, &::Contact::get_PhoneNumbers); }, true),
    call("release-cursor", [](Client& c) { c.cursor.reset(); }),
    call("release-contact", [](Client& c) { c.contact.reset(); }),
    call("release-actions", releaseActions),
    call("release-driver", [](Client& c) { c.driver.reset(); }),
    call(
        "release-all", [](Client& c) { c.release(); }, true),
    call("second-driver", startSecond),
    call("second-driver-goes", searchBeside<false>),
    call("close-pim", [](Client& c) { c.call(c.driver, &::DataConnector::ClosePIM); }),
    call("journal", writeJournal),
    call("folders", [](Client& c) { c.call(c.driver, &::DataConnector::ConfigPIM); }),
    call("export", exportAll),
    call("outlook-closed", [](Client&) { Stage::current().outlook.quit(); }),
};

namespace {

// ---- How it happens

standin::Value answerOf(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    if (type & VT_ARRAY) value.parray = SafeArrayCreateVector(VT_I4, 0, 3);
    return standin::Value(value, false);
}

void kill(Kind kind) {
    Stage::current().kill(kind == Dao || kind == DaoName);
}

using Moment = standin::FaultScript::Moment;

/// What a call on one of the servers meets.
std::optional<standin::Value> atServer(const Event& event, Kind kind, Client& client) {
    if (!departures.leaves(kind)) return {};
    if (event.meanwhile) {
        event.meanwhile(client);
        return {};
    }
    imports.passed += event.milliseconds;
    if (event.milliseconds > 0) return {};
    if (event.kills) kill(kind);
    if (event.answer != VT_ILLEGAL) return answerOf(event.answer);
    throw event.description ? Error(event.code, event.description) : Error::plain(event.code);
}

}  // namespace

void watch(const Event& event, Kind kind, long call, Client& client) {
    const auto watchServer = [&](standin::Server& server, Kind member, Kind name, Kind end) {
        server.faults().onEachCall([&, member, name, end](Moment moment, const standin::Member* called) {
            if (moment == Moment::Call && std::wstring_view(called->name) == L"GetItemFromID")
                atServer(event, OutlookItem, client);
            return atServer(event,
                            moment == Moment::LookUp    ? name
                            : moment == Moment::Release ? end
                                                        : member,
                            client);
        });
    };
    Stage& stage = Stage::current();
    watchServer(stage.outlook.server(), Outlook, OutlookName, OutlookEnd);
    watchServer(stage.dao.server(), Dao, DaoName, DaoEnd);
    imports.happens = {};
    if (event.meanwhile) imports.happens = [&] { event.meanwhile(client); };
    if (event.kills) imports.happens = [kind] { kill(kind); };
    imports.fails = !event.meanwhile;
    imports.error = static_cast<DWORD>(event.code);
    departures.watch(kind, call, event.lasts);
}

}  // namespace prove
