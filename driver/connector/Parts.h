#pragma once

#include "actions/ActionParts.h"
#include "core/DriverState.h"
#include "dialogs/WindowParts.h"
#include "export/ExportParts.h"
#include "search/ContactParts.h"

namespace zelbar {

/// What contacts use of the driver's state, and cursors for theirs.
ContactParts contactParts(DriverState& state);

/// What actions use of it.
ActionParts actionParts(DriverState& state);

/// What an export uses of it.
ExportParts exportParts(DriverState& state);

/// What the windows use of it.
WindowParts windowParts(DriverState& state);

}  // namespace zelbar
