#include "dialogs/TreeControl.h"

#include <algorithm>

namespace zelbar {

namespace {

/// A check mark is a picture that stands for the item's state.
enum Image : UINT { kNone = 0, kEmpty = 1, kChecked = 2 };

Image imageOf(const FolderNode& node) {
    if (!node.holdsContacts) return kNone;
    return node.folder.IsSelected ? kChecked : kEmpty;
}

}  // namespace

void TreeControl::attach(HWND tree, const FolderTree& folders) {
    tree_ = tree;
    // The control accepts this style only once it exists.
    SetWindowLongW(tree_, GWL_STYLE, GetWindowLongW(tree_, GWL_STYLE) | TVS_CHECKBOXES);
    SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
    for (size_t i = 0; i < folders.size(); ++i) add(folders, i);
    for (size_t i = 0; i < folders.size(); ++i) {
        const auto item = reinterpret_cast<LPARAM>(items_[i]);
        if (folders[i].depth == 0) SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, item);
        if (folders[i].folder.IsSelected) SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, item);
    }
    SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
    if (items_.empty()) return;
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(items_.front()));
    SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(items_.front()));
}

void TreeControl::add(const FolderTree& folders, size_t position) {
    const FolderNode& node = folders[position];
    HTREEITEM parent = TVI_ROOT;
    for (size_t above = position; above-- > 0 && parent == TVI_ROOT && node.depth > 0;)
        if (folders[above].depth < node.depth) parent = items_[above];
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT;
    // The control copies the text.
    insertion.item.pszText = const_cast<wchar_t*>(node.folder.DisplayName.c_str());
    const auto item = reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), item);
    setImage(item, imageOf(node));
}

void TreeControl::insert(const FolderTree& folders, size_t position) {
    add(folders, position);
    const auto item = reinterpret_cast<LPARAM>(items_[position]);
    SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, item);
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, item);
}

void TreeControl::setImage(HTREEITEM item, UINT image) {
    TVITEMW change{};
    change.mask = TVIF_HANDLE | TVIF_STATE;
    change.hItem = item;
    change.stateMask = TVIS_STATEIMAGEMASK;
    change.state = INDEXTOSTATEIMAGEMASK(image);
    SendMessageW(tree_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&change));
}

std::optional<size_t> TreeControl::current() const {
    const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0));
    const auto place = std::find(items_.begin(), items_.end(), item);
    if (!item || place == items_.end()) return std::nullopt;
    return static_cast<size_t>(place - items_.begin());
}

bool TreeControl::isChecked(size_t position) const {
    const auto state =
        static_cast<UINT>(SendMessageW(tree_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(items_[position]),
                                       static_cast<LPARAM>(TVIS_STATEIMAGEMASK)));
    return (state & TVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(kChecked);
}

void TreeControl::tidy(const FolderTree& folders) {
    for (size_t i = 0; i < folders.size(); ++i)
        if (!folders[i].holdsContacts) setImage(items_[i], kNone);
}

}  // namespace zelbar
