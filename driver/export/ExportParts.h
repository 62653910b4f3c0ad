#pragma once

#include "automation/Gateway.h"
#include "core/EmployeesDatabase.h"
#include "core/OutlookConnection.h"
#include "core/UserDoor.h"
#include "support/FLog.h"
#include "support/cLocalizedText.h"

namespace zelbar {

/// What an export uses of the driver. All of it outlives the run, which keeps the module in use.
struct ExportParts {
    FLog& log;
    Gateway& gateway;
    OutlookConnection& outlook;
    EmployeesDatabase& employees;
    cLocalizedText& texts;
    UserDoor& user;
    /// The export folder is being worked on; messages that are served meanwhile must not start it again.
    bool& exporting;
};

}  // namespace zelbar
