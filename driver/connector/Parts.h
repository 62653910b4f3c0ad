#pragma once

#include "core/DriverState.h"
#include "search/ContactParts.h"

namespace zelbar {

/// What contacts use of the driver's state, and cursors for theirs.
ContactParts contactParts(DriverState& state);

}  // namespace zelbar
