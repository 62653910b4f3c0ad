#include "filler/FolderChoice.h"

#include <algorithm>

#include "support/Settings.h"
#include "support/Text.h"

namespace filler {
namespace {

/// The driver's table of stores has so many rows.
constexpr long kMostStores = 100;

long limitOfStores() {
    const long limit = zelbar::leadingInteger(zelbar::getSetting(zelbar::settings::kLimitPST));
    return limit > 0 ? std::min(limit, kMostStores) : kMostStores;
}

}  // namespace

FolderChoice readFolderChoice() {
    FolderChoice choice{{}, limitOfStores()};
    for (const zelbar::StoredFolder& stored : zelbar::storedFolders()) {
        if (!stored.selected) continue;
        const FolderId folder{stored.entryId, stored.storeId};
        if (std::find(choice.folders.begin(), choice.folders.end(), folder) == choice.folders.end())
            choice.folders.push_back(folder);
    }
    return choice;
}

}  // namespace filler
