#pragma once

#include <string>

#include "core/OutlookConnection.h"
#include "support/FLog.h"
#include "support/cLocalizedText.h"
#include "support/localize.h"

namespace zelbar {

/// What the windows use of the driver. References are enough, though a window outlives the call that opened
/// it and the entry object as well: as long as it is there its form counts as an object of the driver, and
/// the driver's state goes only when none is left (see `DllCanUnloadNow`; the tests insist on it before they
/// reset the driver).
struct WindowParts {
    /// The driver's title.
    const std::wstring& title;
    FLog& log;
    OutlookConnection& outlook;
    const localize& languages;
    cLocalizedText& texts;
};

}  // namespace zelbar
