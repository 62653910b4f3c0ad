#pragma once

#include <string>
#include <vector>

namespace filler {

/// Identity of an Outlook folder. The store may be empty: then Outlook looks in the default store.
struct FolderId {
    std::wstring entryId;
    std::wstring storeId;

    bool operator==(const FolderId&) const = default;
};

/// What the settings say about the folders to read.
struct FolderChoice {
    std::vector<FolderId> folders;  ///< Each once; none chosen means the default contacts folder.
    long mostStores = 0;            ///< Folders of further stores are left out.
};

/// Reads the choice as the folder selection dialog has stored it.
FolderChoice readFolderChoice();

}  // namespace filler
