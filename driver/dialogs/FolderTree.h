#pragma once

#include <string>
#include <vector>

#include "dialogs/cfolder.h"

namespace zelbar {

/// A folder's place in Outlook's tree.
struct FolderNode {
    size_t depth = 0;            ///< 0 for a store's topmost folder.
    bool holdsContacts = false;  ///< Only such a folder can be selected.
    cfolder folder;
};

/// Outlook's folders depth first, the stores in Outlook's order.
using FolderTree = std::vector<FolderNode>;

/// The first place behind the folders below a folder.
inline size_t endOfBranch(const FolderTree& tree, size_t folder) {
    size_t end = folder + 1;
    while (end < tree.size() && tree[end].depth > tree[folder].depth) ++end;
    return end;
}

/// The folder above one that is not a store's topmost.
inline size_t parentOf(const FolderTree& tree, size_t folder) {
    size_t parent = folder;
    while (tree[--parent].depth >= tree[folder].depth) {
    }
    return parent;
}

/// The contacts folders among them, in the same order.
inline std::vector<cfolder*> contactsFolders(FolderTree& tree) {
    std::vector<cfolder*> result;
    for (FolderNode& node : tree)
        if (node.holdsContacts) result.push_back(&node.folder);
    return result;
}

}  // namespace zelbar
