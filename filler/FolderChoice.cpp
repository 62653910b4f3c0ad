#include "filler/FolderChoice.h"

#include <algorithm>
#include <utility>

#include "filler/Failure.h"
#include "filler/StoreKeys.h"
#include "support/Settings.h"
#include "support/Text.h"

namespace filler {
namespace {

long limitOfStores() {
    const long limit = zelbar::leadingInteger(zelbar::getSetting(zelbar::settings::kLimitPST));
    return limit > 0 ? std::min(limit, kMostStores) : kMostStores;
}

}  // namespace

FolderChoice readFolderChoice() {
    FolderChoice choice{{}, {}, limitOfStores()};
    std::set<std::pair<std::wstring, std::wstring>> seen;
    const std::vector<zelbar::StoredFolder> list = zelbar::storedFolders();
    for (std::size_t i = 0; i < list.size(); ++i) {
        const zelbar::StoredFolder& stored = list[i];
        if (!stored.storeId.empty()) choice.stores.insert(stored.storeId);
        if (stored.selected && seen.emplace(stored.entryId, stored.storeId).second)
            choice.folders.push_back({stored.entryId, stored.storeId, i + 1});
    }
    if (choice.folders.empty() && !list.empty())
        throw Failure{L"No contacts folder is chosen. Choose the contacts folders in the client."};
    return choice;
}

}  // namespace filler
