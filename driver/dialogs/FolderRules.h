#pragma once

// What a stored selection of folders means; needs no Windows, compiles natively.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/cfolder.h"
#include "support/Settings.h"

namespace zelbar {

/// No more stored folders are read than this, and no more are selected when nothing has been stored.
inline constexpr size_t kMostStoredFolders = 16;

/// No more stores are searched than this.
inline constexpr long kMostStores = 100;

/// The selection as it was saved, or none.
struct StoredSelection {
    std::vector<StoredFolder> folders;
    bool reinitialize = false;  ///< The client has not yet rebuilt the cache after the last change.
};

/// How a stored selection fits the folders found.
struct SelectionMatch {
    size_t stored = 0;  ///< Selected folders in the stored selection.
    size_t found = 0;   ///< Folders found for them.
};

/// The limit that a setting's text puts on the number of stores; none for anything but a number from 1.
std::optional<long> storeLimit(std::wstring_view setting);

/// Marks the found folders as they were stored; a folder that is not stored stays as it is.
SelectionMatch applySelection(const StoredSelection& stored, const std::vector<cfolder*>& found);

/// The selection of a user who has never chosen: the first folders.
void selectFirst(const std::vector<cfolder*>& found);

/// What a list shows of a path: all of it, or its end when it is longer than a list's line can be.
std::wstring shownPath(const std::wstring& path);

/// The whole path in lines of a length that can be read, broken before a folder's name where there is one.
std::wstring brokenPath(const std::wstring& path);

/// The folder that a list begins at: the first selected one, else the first.
size_t firstSelected(const std::vector<cfolder*>& found);

/// One character for each folder: "1" when it is selected, else "0".
std::wstring signatureOf(const std::vector<cfolder*>& found);

}  // namespace zelbar
