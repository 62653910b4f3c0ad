#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "automation/Gateway.h"
#include "filler/ContactReader.h"
#include "filler/FolderChoice.h"
#include "filler/Observer.h"
#include "filler/ReadWay.h"

namespace filler {

/// What has been read from Outlook. Stores are named by their position in `storeIds`.
struct AddressBook {
    struct Entry {
        std::size_t store;
        Contact contact;
    };

    std::vector<std::wstring> storeIds;
    /// Stores that the settings name; those that were not read may come back.
    std::set<std::wstring> listedStores;
    /// Those with a number. The others get no row: the client's list of people to call stays empty when the
    /// first hit has nothing to dial.
    std::vector<Entry> contacts;
    /// Store and identifier of the contacts that could not be read: what is known of them must not be lost.
    std::set<std::pair<std::size_t, std::wstring>> unreadable;
    /// Stores with items of which not even the identifier could be read: any contact may be among them.
    std::set<std::size_t> partlyRead;
    long folderCount = 0;
    long contactCount = 0;  ///< With a number or without.
    long unreadCount = 0;   ///< Items that could not be read.
    ChosenWay way;          ///< How the folders were read, as far as they let themselves be.

    bool isComplete() const { return unreadCount == 0; }
};

/// Reads the chosen folders, or the default contacts folder, in the way `asked` for or the best one; a folder
/// that refuses its table is read item by item. An item that cannot be read is counted; when
/// Outlook itself fails, or no item at all can be read, a Failure ends the run.
AddressBook readAddressBook(zelbar::Gateway& gateway, const FolderChoice& choice,
                            std::optional<ReadWay> asked, Observer& observer);

}  // namespace filler
