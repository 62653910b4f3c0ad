#include "dialogs/FolderSettings.h"

#include "support/Settings.h"
#include "support/Text.h"

namespace zelbar {

std::optional<StoredSelection> FolderSettings::selection() const {
    StoredSelection result{storedFolders(), leadingInteger(getSetting(settings::kConfigChanged)) != 0};
    if (result.folders.empty() || result.folders.front().storeId.empty()) return std::nullopt;
    if (result.folders.size() > kMostStoredFolders) result.folders.resize(kMostStoredFolders);
    return result;
}

void FolderSettings::save(const std::vector<cfolder*>& folders, bool configChanged) {
    deleteSection(settings::kEntryId);
    for (size_t i = 0; i < folders.size(); ++i) {
        saveSetting(settings::kEntryId, i + 1, folders[i]->EntryId);
        saveSetting(settings::kStoreId, i + 1, folders[i]->StoreID);
        saveSetting(settings::kSelectId, i + 1, folders[i]->IsSelected ? L"-1" : L"0");
    }
    saveSetting(settings::kConfigChanged, configChanged ? L"1" : L"0");
}

long FolderSettings::InitPSTnumber() const {
    return leadingInteger(getSetting(settings::kInitPSTnumber));
}

}  // namespace zelbar
