#pragma once

#include <vector>

#include "client/doctor/Machine.h"

namespace pimcall::doctor {

/// Asks the Outlook that is running for its version, its stores and the given folders, which get what it
/// says of them; for not longer than some seconds. `isThere`: a process of it has been seen, so that asking
/// starts none.
LiveOutlook askOutlook(bool isThere, std::vector<ChosenFolder>& folders);

}  // namespace pimcall::doctor
