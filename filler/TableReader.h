#pragma once

#include <functional>
#include <string>

#include "filler/FolderContacts.h"
#include "filler/Observer.h"
#include "filler/OpenFolders.h"

namespace filler {

/// A folder cannot be read through a table, or not surely; the reason is for the user.
struct TableRefused {
    std::wstring reason;
};

/// Reads a folder through Outlook's table, hundreds of contacts a call; what the table does not give, or may
/// have cut, is read from the item. The same contacts as item by item, or none: where the table leaves a
/// doubt it throws TableRefused. `onRows` hears how many rows each call gave. Throws a Fault when Outlook
/// itself fails, a Failure when the observer ends the run.
FolderContacts readTable(const zelbar::Object& session, const OpenFolder& folder, const std::wstring& storeId,
                         Observer& observer, const std::function<void(long)>& onRows);

}  // namespace filler
