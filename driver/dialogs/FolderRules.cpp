#include "dialogs/FolderRules.h"

#include "support/Text.h"

namespace zelbar {

std::optional<long> storeLimit(std::wstring_view setting) {
    const long limit = leadingInteger(setting);
    return limit < 1 ? std::nullopt : std::optional(limit);
}

SelectionMatch applySelection(const StoredSelection& stored, const std::vector<cfolder*>& found) {
    SelectionMatch match;
    for (const StoredFolder& entry : stored.folders) {
        if (entry.selected) ++match.stored;
        for (cfolder* folder : found) {
            if (folder->EntryId != entry.entryId || folder->StoreID != entry.storeId) continue;
            folder->IsSelected = entry.selected;
            if (entry.selected) ++match.found;
        }
    }
    return match;
}

void selectFirst(const std::vector<cfolder*>& found) {
    for (size_t i = 0; i < found.size() && i < kMostStoredFolders; ++i) found[i]->IsSelected = true;
}

std::wstring signatureOf(const std::vector<cfolder*>& found) {
    std::wstring signature;
    for (const cfolder* folder : found) signature += folder->IsSelected ? L'1' : L'0';
    return signature;
}

}  // namespace zelbar
