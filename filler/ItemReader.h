#pragma once

#include <functional>

#include "filler/FolderContacts.h"
#include "filler/Observer.h"
#include "filler/OpenFolders.h"

namespace filler {

/// Reads a folder item by item. `onItem` hears of each. Throws a Fault when Outlook itself fails, a Failure
/// when the observer ends the run.
FolderContacts readItems(const OpenFolder& folder, Observer& observer, const std::function<void()>& onItem);

}  // namespace filler
