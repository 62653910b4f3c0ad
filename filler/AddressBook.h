#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "automation/Gateway.h"
#include "filler/ContactReader.h"
#include "filler/FolderChoice.h"
#include "filler/Observer.h"

namespace filler {

/// What has been read from Outlook. Stores are named by their position in `storeIds`.
struct AddressBook {
    struct Entry {
        std::size_t store;
        Contact contact;
    };

    std::vector<std::wstring> storeIds;
    /// Those with a number. The others get no row: the client's list of people to call stays empty when the
    /// first hit has nothing to dial.
    std::vector<Entry> contacts;
    /// Store and identifier of the contacts that could not be read: what is known of them must not be lost.
    std::set<std::pair<std::size_t, std::wstring>> unreadable;
    long folderCount = 0;
    long contactCount = 0;  ///< With a number or without.
    long unreadCount = 0;   ///< Items that could not be read.
};

/// Reads the chosen folders, or the default contacts folder. An item that cannot be read is counted; when
/// Outlook itself fails, or no item at all can be read, a Failure ends the run.
AddressBook readAddressBook(zelbar::Gateway& gateway, const FolderChoice& choice, Observer& observer);

}  // namespace filler
