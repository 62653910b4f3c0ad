#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace filler {

/// An Outlook folder as the settings name it. The store may be empty: then Outlook looks in the default
/// store.
struct ChosenFolder {
    std::wstring entryId;
    std::wstring storeId;
    std::size_t number;  ///< Its place in the stored list, from 1.
};

/// What the settings say about the folders to read.
struct FolderChoice {
    std::vector<ChosenFolder> folders;  ///< Each once; none means the default contacts folder.
    std::set<std::wstring> stores;      ///< Every store that the list names, its folder chosen or not.
    long mostStores = 0;                ///< Folders of further stores are left out.
};

/// Reads the choice as the folder selection dialog has stored it. Throws a Failure when a list is stored and
/// nothing in it is chosen: the default folder is for users who have never chosen.
FolderChoice readFolderChoice();

}  // namespace filler
