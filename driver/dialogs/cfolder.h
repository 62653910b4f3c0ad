#pragma once

#include <string>

namespace zelbar {

/// One of Outlook's folders as the folder dialogs know it. Two records denote the same folder when both
/// identifiers are equal.
struct cfolder {
    std::wstring FullName;  ///< The names from the store down to this folder, each behind a "\".
    bool IsSelected = false;
    std::wstring StoreID;
    std::wstring EntryId;
    std::wstring DisplayName;
};

}  // namespace zelbar
