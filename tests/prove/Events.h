#pragma once

#include <set>
#include <vector>

#include "tests/prove/Client.h"
#include "tests/prove/Departures.h"

namespace prove {

/// What happens at one call that leaves the driver: it fails in some way, or the client calls in meanwhile.
struct Event {
    const char* name;
    std::set<Kind> at;
    /// Belongs to the short form.
    bool isShort = false;
    /// A failure, as a bare HRESULT or with a description; for Windows' own functions their number.
    long code = 0;
    const wchar_t* description = nullptr;
    /// From this call on all of the kind fail.
    bool lasts = false;
    /// The driver waits for an end only as long as its settings say; the call takes so long.
    bool deadlines = false;
    ULONGLONG milliseconds = 0;
    /// The answer in the call's place.
    VARTYPE answer = VT_ILLEGAL;
    /// Outlook or DAO is gone, and does not come back during the scenario.
    bool kills = false;
    /// What the client does.
    void (*meanwhile)(Client& client) = nullptr;
};

extern const std::vector<Event> kFaults, kIncoming;

/// Watches from now on, with the event at that call of the kind.
void watch(const Event& event, Kind kind, long call, Client& client);

}  // namespace prove
