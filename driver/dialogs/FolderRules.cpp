#include "dialogs/FolderRules.h"

#include <algorithm>

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

std::wstring shownPath(const std::wstring& path) {
    constexpr size_t kLongestLine = 259;
    if (path.size() <= kLongestLine) return path;
    return L"..." + path.substr(path.size() - (kLongestLine - 3));
}

std::wstring brokenPath(const std::wstring& path) {
    constexpr size_t kLineLength = 70;
    std::wstring lines, rest = path;
    while (rest.size() > kLineLength) {
        const size_t name = rest.rfind(L'\\', kLineLength);
        const size_t end = name == rest.npos || name == 0 ? kLineLength : name;
        lines += rest.substr(0, end) + L"\r\n";
        rest.erase(0, end);
    }
    return lines + rest;
}

size_t firstSelected(const std::vector<cfolder*>& found) {
    const auto first =
        std::find_if(found.begin(), found.end(), [](const cfolder* folder) { return folder->IsSelected; });
    return first == found.end() ? 0 : static_cast<size_t>(first - found.begin());
}

std::wstring signatureOf(const std::vector<cfolder*>& found) {
    std::wstring signature;
    for (const cfolder* folder : found) signature += folder->IsSelected ? L'1' : L'0';
    return signature;
}

}  // namespace zelbar
