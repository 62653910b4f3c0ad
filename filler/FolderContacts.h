#pragma once

#include <string>
#include <vector>

#include "automation/Fault.h"
#include "filler/ContactReader.h"

namespace filler {

/// What one folder gave.
struct FolderContacts {
    std::vector<Contact> contacts;         ///< With a number or without.
    std::vector<std::wstring> unreadable;  ///< Identifiers of contacts that could not be read.
    long withoutIdentifier = 0;            ///< Items of which not even that could be read.
    std::wstring lastFault;                ///< The reason of the latest that could not be read.

    long unread() const { return static_cast<long>(unreadable.size()) + withoutIdentifier; }

    /// Counts an item that could not be read; `id` is empty when it is not known.
    void addUnread(const std::wstring& id, const zelbar::Fault& fault) {
        lastFault = fault.description;
        if (id.empty())
            ++withoutIdentifier;
        else
            unreadable.push_back(id);
    }
};

}  // namespace filler
