#include "dialogs/frmOutListFolder.h"

#include <memory>
#include <string>
#include <utility>

#include "dialogs/Asking.h"
#include "dialogs/Controls.h"
#include "dialogs/FolderMaker.h"
#include "dialogs/Form.h"
#include "dialogs/TreeControl.h"
#include "dialogs/VisualStyles.h"
#include "support/Text.h"

namespace zelbar {

namespace {

constexpr UINT kTidy = WM_APP + 1;

/// It works on a tree of its own: the window below it shows, and answers for, the other one meanwhile.
class frmOutListFolder final : public Form {
  public:
    frmOutListFolder(const WindowParts& parts, FolderTree folders)
        : Form(L"frmOutListFolder", parts), folders_(std::move(folders)) {}
    static void show(const WindowParts& parts, HWND owner, FolderSelection& selection);

  private:
    INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter) override;
    INT_PTR command(int id, int event);
    void notified(const NMHDR& header);
    void load();
    void nameParent();
    void nameChanged();
    void takeChoice();
    void create();
    void made(size_t parent, cfolder folder);
    bool isTaken(size_t parent, const std::wstring& name) const;
    void tell(const std::wstring& text) const;
    std::wstring typedName() const;

    FolderTree folders_;
    TreeControl tree_;
    bool modified_ = false;
    bool asking_ = false;
};

void frmOutListFolder::show(const WindowParts& parts, HWND owner, FolderSelection& selection) {
    const VisualStyles looks;
    const auto form = std::make_shared<frmOutListFolder>(parts, selection.tree());
    run(form, kDialogResource_frmOutListFolder, owner);
    if (form->modified_) selection.SetFoldersModified();
    selection.tree() = std::move(form->folders_);
}

INT_PTR frmOutListFolder::handle(UINT message, WPARAM wide, LPARAM parameter) {
    switch (message) {
        case WM_INITDIALOG:
            load();
            return TRUE;
        case WM_COMMAND:
            return command(LOWORD(wide), HIWORD(wide));
        case WM_NOTIFY:
            notified(*reinterpret_cast<NMHDR*>(parameter));
            return FALSE;
        case kTidy:
            tree_.tidy(folders_);
            return TRUE;
        case WM_DESTROY:
            tree_.detach();
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR frmOutListFolder::command(int id, int event) {
    switch (id) {
        case IDOK:
            if (asking_) return TRUE;
            takeChoice();
            EndDialog(window(), IDOK);
            return TRUE;
        case IDCANCEL:
            EndDialog(window(), IDCANCEL);
            return TRUE;
        case kControl_CmdCreate:
            create();
            return TRUE;
        case kControl_Name:
            if (event == EN_KILLFOCUS) makeDefault(IDOK);
            if (event == EN_SETFOCUS || event == EN_CHANGE) nameChanged();
            return TRUE;
        default:
            return FALSE;
    }
}

void frmOutListFolder::notified(const NMHDR& header) {
    // The control changes the state after it has told.
    if (header.code == TVN_KEYDOWN) PostMessageW(window(), kTidy, 0, 0);
    if (header.code == TVN_SELCHANGEDW) nameParent();
}

void frmOutListFolder::load() {
    using enum Anchors::Edge;
    dress({{0, L"#07120#Outlook folders"},
           {kControl_TreeLabel, L"#07121#Check the contacts folders that are to be searched:"},
           {kControl_CmdCreate, L"#07123#C&reate"},
           {IDOK, L"#01000#&OK"},
           {IDCANCEL, L"#01001#&Cancel"}},
          {{kControl_TreeLabel, kLeft | kTop | kRight},
           {kControl_treeFolder, kLeft | kTop | kRight | kBottom},
           {kControl_NameLabel, kLeft | kRight | kBottom},
           {kControl_Name, kLeft | kRight | kBottom},
           {kControl_CmdCreate, kRight | kBottom},
           {kControl_Answer, kLeft | kRight | kBottom},
           {IDOK, kRight | kBottom},
           {IDCANCEL, kRight | kBottom}});
    EnableWindow(control(kControl_CmdCreate), FALSE);
    tree_.attach(control(kControl_treeFolder), folders_);
    nameParent();
}

void frmOutListFolder::nameParent() {
    const auto parent = tree_.current();
    std::wstring text = parts_.texts.translate(L"#07122#New contacts folder below \"%1\":");
    const size_t place = text.find(L"%1");
    if (place != text.npos) text.replace(place, 2, parent ? folders_[*parent].folder.DisplayName : L"");
    SetWindowTextW(control(kControl_NameLabel), text.c_str());
}

/// Enter makes the folder as soon as it has a name; without one it is OK.
void frmOutListFolder::nameChanged() {
    const bool named = !typedName().empty();
    EnableWindow(control(kControl_CmdCreate), named);
    makeDefault(named ? kControl_CmdCreate : IDOK);
}

void frmOutListFolder::takeChoice() {
    // What could not be shown stays as it was.
    for (size_t i = 0; i < tree_.count(); ++i)
        if (folders_[i].holdsContacts) folders_[i].folder.IsSelected = tree_.isChecked(i);
}

std::wstring frmOutListFolder::typedName() const {
    wchar_t text[256] = {};
    GetWindowTextW(control(kControl_Name), text, 256);
    return std::wstring(trimmed(text));
}

void frmOutListFolder::tell(const std::wstring& text) const {
    SetWindowTextW(control(kControl_Answer), text.c_str());
    ShowWindow(control(kControl_Answer), text.empty() ? SW_HIDE : SW_SHOWNA);
}

void frmOutListFolder::create() {
    const std::wstring name = typedName();
    const auto parent = tree_.current();
    if (name.empty() || !parent || asking_) return;
    cLocalizedText& texts = parts_.texts;
    if (isTaken(*parent, name)) {
        tell(texts.translate(L"#07110#A folder with this name already exists. Please use another name."));
        return;
    }
    const Asking asking(asking_);
    try {
        made(*parent, makeContactsFolder(parts_.outlook, parts_.log, folders_, *parent, name));
    } catch (...) {
        const Fault fault = caughtFault();
        parts_.log.fault(L"Error (frmOutListFolder): ", fault);
        tell(texts.translate(L"#07124#The folder could not be created.") + L"\r\n" + fault.description);
    }
}

bool frmOutListFolder::isTaken(size_t parent, const std::wstring& name) const {
    for (size_t i = parent + 1; i < endOfBranch(folders_, parent); ++i)
        if (folders_[i].depth == folders_[parent].depth + 1 &&
            lstrcmpiW(folders_[i].folder.DisplayName.c_str(), name.c_str()) == 0)
            return true;
    return false;
}

void frmOutListFolder::made(size_t parent, cfolder folder) {
    modified_ = true;
    const bool readable = !folder.EntryId.empty();
    FolderNode node{folders_[parent].depth + 1, readable, std::move(folder)};
    // Its box comes checked, since it has been made to be searched; only OK makes that count.
    node.folder.IsSelected = readable;
    const size_t place = endOfBranch(folders_, parent);
    folders_.insert(folders_.begin() + static_cast<std::ptrdiff_t>(place), std::move(node));
    try {
        tree_.insert(folders_, place);
    } catch (...) {
        folders_.erase(folders_.begin() + static_cast<std::ptrdiff_t>(place));
        throw;
    }
    folders_[place].folder.IsSelected = false;
    tell(readable ? std::wstring()
                  : parts_.texts.translate(
                        L"#07125#The folder was created but cannot be read. Open this window again."));
    SetWindowTextW(control(kControl_Name), L"");
    focus(kControl_treeFolder);
}

}  // namespace

void showFolderTree(const WindowParts& parts, HWND owner, FolderSelection& selection) {
    frmOutListFolder::show(parts, owner, selection);
}

}  // namespace zelbar
