#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <vector>

#include "dialogs/FolderTree.h"
#include "support/Handle.h"

namespace zelbar {

/// The folders of a tree in a tree view, the contacts folders with check boxes.
class TreeControl {
  public:
    /// Takes the control of a dialog that has just been made, and shows the tree in it; its selected folders
    /// are checked and in sight.
    void attach(HWND tree, const FolderTree& folders);

    /// To be called while the dialog goes: takes over what the control would leave behind.
    void detach();

    /// Shows a folder that has come into the tree, and makes it the current one.
    void insert(const FolderTree& folders, size_t position);

    /// The current folder's place in the tree.
    std::optional<size_t> current() const;
    bool isChecked(size_t position) const;
    /// How many folders it shows: none when the memory was not enough for all.
    size_t count() const { return items_.size(); }

    /// Takes check marks away that the control has given to other folders than those of contacts.
    void tidy(const FolderTree& folders);

  private:
    struct ImageListTraits {
        using Type = HIMAGELIST;
        static Type empty() noexcept { return nullptr; }
        static void close(Type list) noexcept { ImageList_Destroy(list); }
    };

    void decorate();
    void add(const FolderTree& folders, size_t position);
    void setBox(HTREEITEM item, UINT box);

    HWND tree_ = nullptr;
    Handle<ImageListTraits> boxes_;
    int storeIcon_ = 0;
    int folderIcon_ = 0;
    int openIcon_ = 0;
    std::vector<HTREEITEM> items_;  // by the folder's place in the tree
};

}  // namespace zelbar
