#pragma once

#include <PIMDriverAbstract.h>
#include <windows.h>

#include "automation/Com.h"
#include "automation/Gateway.h"
#include "core/ContactCache.h"
#include "core/DirectoryDatabase.h"
#include "core/EmployeesDatabase.h"
#include "core/OutlookConnection.h"
#include "core/UserDoor.h"
#include "support/FLog.h"
#include "support/cLocalizedText.h"
#include "support/localize.h"
#include "support/mLogError.h"
#include "support/modMultiUser.h"

namespace zelbar {

/// All that the driver's classes share: one set per process. It is made by the first use and lasts until
/// no client needs the module (the log, the data folder and the language are decided once); what it holds of
/// Outlook and DAO is opened by the entry object's start-up and closed by its shut-down.
struct DriverState {
    DriverState();
    ~DriverState();
    DriverState(const DriverState&) = delete;
    DriverState& operator=(const DriverState&) = delete;

    Module module = thisModule();
    FLog log{module};
    mLogError errors{module};
    modMultiUser paths{module, errors};
    localize languages{module, errors};
    cLocalizedText texts{module, languages};
    UserDoor user;
    Gateway gateway;
    ContactCache cache{gateway, log, paths};
    DirectoryDatabase directory{cache, paths};
    EmployeesDatabase employees{cache};
    OutlookConnection outlook{gateway, log, errors, user, cache.stores()};

    /// By which clock Outlook is waited for; tests have their own, which must outlive the state.
    void waitBy(CallClock& clock);

    /// How start-up waits; a test that cannot wait puts another in its place.
    void (*sleep)(DWORD milliseconds) = [](DWORD milliseconds) { Sleep(milliseconds); };

    /// True when there was no cache at start-up.
    bool firstLaunch = false;
    /// The search under way is the client's unified one: it wants business numbers only.
    bool unifiedSearch = false;
    /// The export folder is being worked on; messages that are served meanwhile must not start it again.
    bool exporting = false;

    Com<::PIMActions> actions;
};

/// The driver's state; made when it is first asked for.
DriverState& driver();

/// Throws the state away, so that the next use makes a new one: when no client needs the module, and between
/// tests.
void resetDriver();

}  // namespace zelbar
