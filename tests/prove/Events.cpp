#include "tests/prove/Events.h"

#include "automation/Bstr.h"
#include "standin/common/Error.h"
#include "standin/common/FaultScript.h"
#include "standin/common/MemberTable.h"
#include "tests/prove/Imports.h"
#include "tests/prove/Stage.h"

namespace prove {

namespace {

using standin::Error;
using zelbar::Bstr;
using zelbar::Com;
using zelbar::Variant;
using enum Kind;

constexpr long code(unsigned long number) {
    return static_cast<long>(number);
}

bool atCalls(Kind kind) {
    return kind == Outlook || kind == Dao;
}
bool atOutlookCalls(Kind kind) {
    return kind == Outlook;
}
bool atItems(Kind kind) {
    return kind == OutlookItem;
}
bool atServers(Kind kind) {
    return atCalls(kind) || kind == OutlookName || kind == DaoName || kind == Activation;
}
bool atWindows(Kind kind) {
    return kind == Registry || kind == File || kind == Process;
}
bool atRoom(Kind kind) {
    return kind == Memory || kind == Kind::Window;
}
bool atFiles(Kind kind) {
    return kind == File;
}
bool atActivation(Kind kind) {
    return kind == Activation;
}
bool atWaits(Kind kind) {
    return atServers(kind) || kind == Yield || kind == OutlookEnd || kind == DaoEnd;
}

constexpr Event kFaults[] = {
    {.name = "gone", .meets = atCalls, .code = code(0x8004010F), .isShort = true},
    {.name = "gone-bits", .meets = atOutlookCalls, .code = code(0x8E64010F), .description = L"Not found."},
    {.name = "gone-all",
     .meets = atItems,
     .code = code(0x8004010F),
     .lasts = true,
     .saysGone = true,
     .isShort = true},
    {.name = "rejected", .meets = atServers, .code = code(0x80010001)},
    {.name = "rejected-once", .meets = atOutlookCalls, .code = code(0x80010001), .deadlines = true},
    {.name = "rejected-all",
     .meets = atOutlookCalls,
     .code = code(0x8001010A),
     .lasts = true,
     .deadlines = true},
    {.name = "late", .meets = atOutlookCalls, .milliseconds = 60'000, .deadlines = true},
    {.name = "unavailable", .meets = atServers, .code = code(0x800706BA)},
    {.name = "dead", .meets = atServers, .kills = true, .isShort = true},
    {.name = "fails", .meets = atServers, .code = E_FAIL},
    {.name = "described", .meets = atCalls, .code = E_FAIL, .description = L"The operation failed."},
    {.name = "no-memory", .meets = atServers, .code = E_OUTOFMEMORY},
    {.name = "array", .meets = atCalls, .answer = VT_ARRAY | VT_I4},
    {.name = "null", .meets = atCalls, .answer = VT_NULL},
    {.name = "empty", .meets = atCalls, .answer = VT_EMPTY},
    {.name = "nothing", .meets = atCalls, .answer = VT_DISPATCH},
    {.name = "unregistered", .meets = atActivation, .code = REGDB_E_CLASSNOTREG, .isShort = true},
    {.name = "denied", .meets = atWindows, .code = ERROR_ACCESS_DENIED, .isShort = true},
    {.name = "missing", .meets = atFiles, .code = ERROR_FILE_NOT_FOUND, .isShort = true},
    {.name = "no-resources", .meets = atWindows, .code = ERROR_NO_SYSTEM_RESOURCES},
    {.name = "full", .meets = atFiles, .code = ERROR_DISK_FULL},
    {.name = "no-room", .meets = atRoom, .code = ERROR_NOT_ENOUGH_MEMORY, .isShort = true},
};

// ---- What a client does while it waits

/// What it finds meanwhile is not what it goes on with.
template <class Work>
void keepingItsContact(Client& client, const Work& work) {
    const auto kept = client.contact;
    work();
    client.contact = kept;
}

constexpr Event kCalls[] = {
    {.name = "search",
     .meets = atWaits,
     .meanwhile = [](Client& c) { keepingItsContact(c, [&] { c.first(L"61"); }); },
     .isShort = true},
    {.name = "search-on-another",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             Client other(c.module);
             other.driver = c.driver;
             other.open();
             other.first(L"61");
         }},
    {.name = "next",
     .meets = atWaits,
     .meanwhile = [](Client& c) { keepingItsContact(c, [&] { c.next(); }); }},
    {.name = "numbers",
     .meets = atWaits,
     .meanwhile = [](Client& c) { c.get(c.contact.get(), &::Contact::get_PhoneNumbers); },
     .isShort = true},
    {.name = "release-cursor", .meets = atWaits, .meanwhile = [](Client& c) { c.cursor.reset(); }},
    {.name = "release-contact", .meets = atWaits, .meanwhile = [](Client& c) { c.contact.reset(); }},
    {.name = "release-actions",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             c.action.reset();
             c.actions.reset();
         }},
    {.name = "release-driver", .meets = atWaits, .meanwhile = [](Client& c) { c.driver.reset(); }},
    {.name = "release-all", .meets = atWaits, .meanwhile = [](Client& c) { c.release(); }, .isShort = true},
    {.name = "second-driver",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             Client other(c.module);
             other.start();
             c.second = other.driver;
         }},
    {.name = "second-driver-goes",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             Client other(c.module);
             other.open();
             other.first(L"61");
         }},
    {.name = "close-pim",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             if (c.driver) c.check(c.driver->ClosePIM());
         }},
    {.name = "journal",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             Client other(c.module);
             other.driver = c.driver;
             other.perform(4100, c.contact.get(), {});
         }},
    {.name = "folders",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             if (c.driver) c.check(c.driver->ConfigPIM());
         }},
    {.name = "export",
     .meets = atWaits,
     .meanwhile =
         [](Client& c) {
             VARIANT_BOOL done = VARIANT_FALSE;
             const Variant path(Stage::current().file(L"wxd.mdb")), name(L"");
             if (c.driver) c.check(c.driver->SynchronizeExportFolder(path.raw(), name.raw(), {}, &done));
         }},
    {.name = "outlook-closed",
     .meets = atWaits,
     .meanwhile = [](Client&) { Stage::current().outlook.quit(); }},
};

Error errorOf(const Event& event) {
    return event.description ? Error(event.code, event.description) : Error::plain(event.code);
}

standin::Value answerOf(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    if (type & VT_ARRAY) value.parray = SafeArrayCreateVector(VT_I4, 0, 3);
    return standin::Value(value, false);
}

void kill(Kind kind) {
    kind == Dao || kind == DaoName ? Stage::current().killDao() : Stage::current().killOutlook();
}

using Moment = standin::FaultScript::Moment;

/// What a call on one of the servers meets.
std::optional<standin::Value> atServer(const Event& event, Kind kind, Client& client) {
    if (!departures().leaves(kind)) return {};
    if (event.meanwhile) {
        event.meanwhile(client);
        return {};
    }
    if (event.milliseconds > 0) return passTime(event.milliseconds), std::nullopt;
    if (event.kills) kill(kind);
    if (event.answer != VT_ILLEGAL) return answerOf(event.answer);
    throw event.kills ? Error::plain(code(0x800706BA)) : errorOf(event);
}

std::optional<standin::Value> atOutlook(const Event& event, Moment moment, const standin::Member* member,
                                        Client& client) {
    if (moment == Moment::LookUp) return atServer(event, OutlookName, client);
    if (moment == Moment::Release) return atServer(event, OutlookEnd, client);
    if (std::wstring_view(member->name) == L"GetItemFromID") atServer(event, OutlookItem, client);
    return atServer(event, Outlook, client);
}

std::optional<standin::Value> atDao(const Event& event, Moment moment, Client& client) {
    return atServer(event,
                    moment == Moment::LookUp    ? DaoName
                    : moment == Moment::Release ? DaoEnd
                                                : Dao,
                    client);
}

}  // namespace

std::span<const Event> faults() {
    return kFaults;
}

std::span<const Event> calls() {
    return kCalls;
}

void watch(const Event& event, Kind kind, long call, Client& client) {
    Stage& stage = Stage::current();
    stage.outlook.server().faults().onEachCall([&](Moment moment, const standin::Member* member) {
        return atOutlook(event, moment, member, client);
    });
    stage.dao.server().faults().onEachCall(
        [&](Moment moment, const standin::Member*) { return atDao(event, moment, client); });
    if (event.meanwhile)
        setImportEvent([&] { event.meanwhile(client); }, false, 0);
    else if (event.kills)
        setImportEvent([kind] { kill(kind); }, true, 0x800706BA);
    else
        setImportEvent({}, true, static_cast<DWORD>(event.code));
    departures().watch(kind, call, event.lasts);
}

}  // namespace prove
