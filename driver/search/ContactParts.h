#pragma once

#include "core/DirectoryDatabase.h"
#include "core/OutlookConnection.h"
#include "support/FLog.h"
#include "support/cLocalizedText.h"
#include "support/modMultiUser.h"

namespace zelbar {

/// What a contact uses of the driver. References are enough, here and in all that is made of them: the
/// driver's state goes only when no object of the driver is alive any more (see `DllCanUnloadNow`).
struct ContactParts {
    FLog& log;
    OutlookConnection& outlook;
    DirectoryDatabase& directory;
    modMultiUser& paths;
    cLocalizedText& texts;
    /// Whether the search under way is the client's unified one. A cursor sets it, its contacts read it.
    bool& unifiedSearch;
};

}  // namespace zelbar
