#include "dialogs/FolderSettings.h"

#include "support/Text.h"

namespace zelbar {

namespace {

constexpr wchar_t kSection[] = L"zelbar00folder";
constexpr wchar_t kEntryId[] = L"entryId";
constexpr wchar_t kStoreId[] = L"storeId";
constexpr wchar_t kSelectId[] = L"selectId";
constexpr wchar_t kConfigChanged[] = L"ConfigChanged";

std::wstring numbered(const wchar_t* name, size_t number) {
    return name + std::to_wstring(number);
}

}  // namespace

std::wstring FolderSettings::stored(const wchar_t* name, size_t number) const {
    return settings_.GetSetting(kSection, numbered(name, number));
}

void FolderSettings::store(const wchar_t* name, size_t number, const std::wstring& value) {
    settings_.SaveSetting(kSection, numbered(name, number), value);
}

std::optional<StoredSelection> FolderSettings::selection() const {
    if (stored(kEntryId, 1).empty() || stored(kStoreId, 1).empty()) return std::nullopt;
    StoredSelection result;
    for (size_t number = 1; number <= kMostStoredFolders; ++number) {
        const std::wstring entryId = stored(kEntryId, number);
        if (entryId.empty()) break;
        result.folders.push_back({entryId, stored(kStoreId, number), stored(kSelectId, number) != L"0"});
    }
    result.reinitialize = leadingInteger(settings_.GetSetting(kSection, kConfigChanged)) != 0;
    return result;
}

void FolderSettings::save(const std::vector<cfolder*>& folders, bool configChanged) {
    settings_.DeleteSetting(kSection, L"");
    for (size_t i = 0; i < folders.size(); ++i) {
        store(kEntryId, i + 1, folders[i]->EntryId);
        store(kStoreId, i + 1, folders[i]->StoreID);
        store(kSelectId, i + 1, folders[i]->IsSelected ? L"-1" : L"0");
    }
    settings_.SaveSetting(kSection, kConfigChanged, configChanged ? L"1" : L"0");
}

long FolderSettings::InitPSTnumber() const {
    return leadingInteger(settings_.GetSetting(L"", L"InitPSTnumber"));
}

}  // namespace zelbar
