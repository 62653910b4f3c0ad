#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dialogs/FolderRules.h"
#include "support/Settings.h"

namespace zelbar {

/// The user's settings that the choice of folders reads and writes.
class FolderSettings {
  public:
    /// The stored selection; none when no first folder is stored.
    std::optional<StoredSelection> selection() const;

    /// Puts the folders in the place of the stored selection, and says whether the cache must be rebuilt.
    void save(const std::vector<cfolder*>& folders, bool configChanged);

    /// The text that limits the number of stores searched.
    std::wstring LimitPST() const { return getSetting(settings::kLimitPST); }
    /// The export folder's identity; its parts are empty while there is none.
    StoredFolder exportFolder() const {
        return {getSetting(settings::kExportEntryId), getSetting(settings::kExportStoreId)};
    }
    /// How many stores the installation has counted.
    long InitPSTnumber() const;
};

}  // namespace zelbar
