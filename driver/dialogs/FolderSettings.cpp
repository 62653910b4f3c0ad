#include "dialogs/FolderSettings.h"

#include "automation/Fault.h"
#include "support/Settings.h"
#include "support/Text.h"

namespace zelbar {

namespace {

bool write(const Setting& setting, size_t number, const std::wstring& text) {
    // That there is nothing to delete is no failure.
    return saveSetting(setting, number, text) || text.empty();
}

bool write(size_t number, const StoredFolder& folder, const wchar_t* state) {
    return write(settings::kEntryId, number, folder.entryId) &&
           write(settings::kStoreId, number, folder.storeId) && write(settings::kSelectId, number, state);
}

/// Writes the folders over those that are stored, so that at no time there are none. False when the registry
/// refuses.
bool write(const std::vector<StoredFolder>& folders) {
    size_t number = 0;
    for (const StoredFolder& folder : folders)
        if (!write(++number, folder, folder.selected ? L"-1" : L"0")) return false;
    while (!getSetting(settings::kEntryId, ++number).empty())
        if (!write(number, {}, L"")) return false;
    return true;
}

}  // namespace

std::optional<StoredSelection> FolderSettings::selection() const {
    StoredSelection result{storedFolders(), leadingInteger(getSetting(settings::kConfigChanged)) != 0};
    if (result.folders.empty() || result.folders.front().storeId.empty()) return std::nullopt;
    if (result.folders.size() > kMostStoredFolders) result.folders.resize(kMostStoredFolders);
    return result;
}

void FolderSettings::save(const std::vector<cfolder*>& folders, bool configChanged) {
    const std::vector<StoredFolder> before = storedFolders();
    std::vector<StoredFolder> chosen;
    chosen.reserve(folders.size());
    for (const cfolder* folder : folders)
        chosen.push_back({folder->EntryId, folder->StoreID, folder->IsSelected});
    try {
        if (!write(chosen) || !saveSetting(settings::kConfigChanged, configChanged ? L"1" : L"0"))
            throw runtimeFault(fault::kPermissionDenied);
    } catch (...) {
        const Fault fault = caughtFault();
        write(before);
        throw fault;
    }
}

long FolderSettings::InitPSTnumber() const {
    return leadingInteger(getSetting(settings::kInitPSTnumber));
}

}  // namespace zelbar
