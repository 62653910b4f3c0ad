#include "dialogs/TreeControl.h"

#include <shellapi.h>
#include <uxtheme.h>

#include <algorithm>

namespace zelbar {

namespace {

/// A check mark is a picture that stands for the item's state.
enum Box : UINT { kNone = 0, kEmpty = 1, kChecked = 2 };

Box boxOf(const FolderNode& node) {
    if (!node.holdsContacts) return kNone;
    return node.folder.IsSelected ? kChecked : kEmpty;
}

/// The system's small icons, and which of them a kind of file has; shared by all, nobody destroys them.
HIMAGELIST systemIcon(const wchar_t* kind, DWORD attributes, UINT flags, int& index) {
    SHFILEINFOW answer{};
    const DWORD_PTR icons =
        SHGetFileInfoW(kind, attributes, &answer, sizeof(answer),
                       SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES | flags);
    index = answer.iIcon;
    return reinterpret_cast<HIMAGELIST>(icons);
}

}  // namespace

/// As in the Explorer.
void TreeControl::decorate() {
    SetWindowTheme(tree_, L"Explorer", nullptr);
    systemIcon(L"store.pst", FILE_ATTRIBUTE_NORMAL, 0, storeIcon_);
    systemIcon(L"folder", FILE_ATTRIBUTE_DIRECTORY, SHGFI_OPENICON, openIcon_);
    const HIMAGELIST icons = systemIcon(L"folder", FILE_ATTRIBUTE_DIRECTORY, 0, folderIcon_);
    SendMessageW(tree_, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(icons));
}

void TreeControl::detach() {
    boxes_.reset(reinterpret_cast<HIMAGELIST>(SendMessageW(tree_, TVM_GETIMAGELIST, TVSIL_STATE, 0)));
}

void TreeControl::attach(HWND tree, const FolderTree& folders) {
    tree_ = tree;
    // All of them or none: the places of half a tree would be others than the folders'.
    items_.reserve(folders.size());
    // The control accepts this style only once it exists.
    SetWindowLongW(tree_, GWL_STYLE, GetWindowLongW(tree_, GWL_STYLE) | TVS_CHECKBOXES);
    decorate();
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
    // An item of the control without its place here would shift all that come behind it.
    items_.reserve(items_.size() + 1);
    HTREEITEM parent = TVI_ROOT;
    for (size_t above = position; above-- > 0 && parent == TVI_ROOT && node.depth > 0;)
        if (folders[above].depth < node.depth) parent = items_[above];
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE;
    insertion.item.iImage = node.depth == 0 ? storeIcon_ : folderIcon_;
    insertion.item.iSelectedImage = node.depth == 0 ? storeIcon_ : openIcon_;
    // The control copies the text.
    insertion.item.pszText = const_cast<wchar_t*>(node.folder.DisplayName.c_str());
    const auto item = reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), item);
    setBox(item, boxOf(node));
}

void TreeControl::insert(const FolderTree& folders, size_t position) {
    add(folders, position);
    const auto item = reinterpret_cast<LPARAM>(items_[position]);
    SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, item);
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, item);
}

void TreeControl::setBox(HTREEITEM item, UINT box) {
    TVITEMW change{};
    change.mask = TVIF_HANDLE | TVIF_STATE;
    change.hItem = item;
    change.stateMask = TVIS_STATEIMAGEMASK;
    change.state = INDEXTOSTATEIMAGEMASK(box);
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
    for (size_t i = 0; i < items_.size(); ++i)
        if (!folders[i].holdsContacts) setBox(items_[i], kNone);
}

}  // namespace zelbar
