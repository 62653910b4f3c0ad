#include "filler/FolderChoice.h"

#include <algorithm>

#include "support/CRegSettings.h"
#include "support/Text.h"

namespace filler {
namespace {

constexpr int kMostEntries = 16;
/// The driver's table of stores has so many rows.
constexpr long kMostStores = 100;

long limitOfStores(const zelbar::CRegSettings& settings) {
    const std::wstring text = settings.GetSetting(L"", L"LimitPST");
    const long limit = zelbar::leadingInteger(text);
    return limit > 0 ? std::min(limit, kMostStores) : kMostStores;
}

}  // namespace

FolderChoice readFolderChoice() {
    const zelbar::CRegSettings settings(L"7316\\Popup");
    const auto entry = [&](const wchar_t* name, int position) {
        return settings.GetSetting(L"zelbar00folder", name + std::to_wstring(position));
    };
    FolderChoice choice{{}, limitOfStores(settings)};
    for (int position = 1; position <= kMostEntries; ++position) {
        const FolderId folder{entry(L"entryId", position), entry(L"storeId", position)};
        if (folder.entryId.empty()) break;
        if (entry(L"selectId", position) == L"0") continue;
        if (std::find(choice.folders.begin(), choice.folders.end(), folder) == choice.folders.end())
            choice.folders.push_back(folder);
    }
    return choice;
}

}  // namespace filler
