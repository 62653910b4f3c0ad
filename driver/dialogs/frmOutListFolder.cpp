#include "dialogs/frmOutListFolder.h"

#include <string>

#include "core/DriverState.h"
#include "dialogs/Anchors.h"
#include "dialogs/Controls.h"
#include "dialogs/DialogFont.h"
#include "dialogs/FolderMaker.h"
#include "dialogs/TreeControl.h"
#include "dialogs/VisualStyles.h"
#include "module/OwnModule.h"
#include "support/Text.h"

namespace zelbar {

namespace {

constexpr UINT kTidy = WM_APP + 1;

class frmOutListFolder {
  public:
    explicit frmOutListFolder(FolderSelection& selection) : selection_(selection) {}
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;

  private:
    INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter);
    INT_PTR command(WPARAM wide);
    void load();
    void takeChoice();
    void create();
    bool isTaken(size_t parent, const std::wstring& name);
    void insert(size_t parent, cfolder folder);
    void tell(const std::wstring& text) { SetWindowTextW(control(kControl_Answer), text.c_str()); }
    std::wstring typedName() const;
    HWND control(int id) const { return GetDlgItem(window_, id); }

    FolderSelection& selection_;
    HWND window_ = nullptr;
    Anchors anchors_;
    Font font_;
    TreeControl tree_;
};

INT_PTR CALLBACK frmOutListFolder::procedure(HWND window, UINT message, WPARAM wide,
                                             LPARAM parameter) noexcept {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, parameter);
    auto* form = reinterpret_cast<frmOutListFolder*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!form) return FALSE;
    form->window_ = window;
    try {
        return form->handle(message, wide, parameter);
    } catch (...) {
        driver().log.fault(L"Error (frmOutListFolder): ", caughtFault());
        return FALSE;
    }
}

INT_PTR frmOutListFolder::handle(UINT message, WPARAM wide, LPARAM parameter) {
    switch (message) {
        case WM_INITDIALOG:
            load();
            return TRUE;
        case WM_COMMAND:
            return command(wide);
        case WM_NOTIFY:
            // The control changes the state after it has told.
            if (reinterpret_cast<NMHDR*>(parameter)->code == TVN_KEYDOWN) PostMessageW(window_, kTidy, 0, 0);
            return FALSE;
        case kTidy:
            tree_.tidy(selection_.tree());
            return TRUE;
        case WM_SIZE:
            anchors_.move();
            return TRUE;
        case WM_GETMINMAXINFO:
            anchors_.limit(*reinterpret_cast<MINMAXINFO*>(parameter));
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR frmOutListFolder::command(WPARAM wide) {
    switch (LOWORD(wide)) {
        case IDOK:
            takeChoice();
            EndDialog(window_, IDOK);
            return TRUE;
        case IDCANCEL:
            EndDialog(window_, IDCANCEL);
            return TRUE;
        case kControl_CmdCreate:
            create();
            return TRUE;
        case kControl_Name:
            // Enter in the name makes the folder; elsewhere it is OK.
            if (HIWORD(wide) == EN_SETFOCUS) SendMessageW(window_, DM_SETDEFID, kControl_CmdCreate, 0);
            if (HIWORD(wide) == EN_KILLFOCUS) SendMessageW(window_, DM_SETDEFID, IDOK, 0);
            if (HIWORD(wide) == EN_CHANGE) EnableWindow(control(kControl_CmdCreate), !typedName().empty());
            return TRUE;
        default:
            return FALSE;
    }
}

void frmOutListFolder::load() {
    cLocalizedText& texts = driver().texts;
    font_ = ApplyCharset(window_, driver().languages.CurrentCharset());
    SetWindowTextW(window_, texts.translate(L"#07120#Outlook folders").c_str());
    struct Text {
        int control;
        const wchar_t* text;
    };
    for (const Text& line :
         {Text{kControl_TreeLabel, L"#07121#Check the contacts folders that are to be searched:"},
          Text{kControl_NameLabel, L"#07122#New contacts folder below the selected folder:"},
          Text{kControl_CmdCreate, L"#07123#C&reate"}, Text{IDOK, L"#01000#&OK"},
          Text{IDCANCEL, L"#01001#&Cancel"}})
        SetWindowTextW(control(line.control), texts.translate(line.text).c_str());
    using enum Anchors::Edge;
    anchors_.record(window_, {{kControl_TreeLabel, kLeft | kTop | kRight},
                              {kControl_treeFolder, kLeft | kTop | kRight | kBottom},
                              {kControl_NameLabel, kLeft | kRight | kBottom},
                              {kControl_Name, kLeft | kRight | kBottom},
                              {kControl_CmdCreate, kRight | kBottom},
                              {kControl_Answer, kLeft | kRight | kBottom},
                              {IDOK, kRight | kBottom},
                              {IDCANCEL, kRight | kBottom}});
    EnableWindow(control(kControl_CmdCreate), FALSE);
    tree_.attach(control(kControl_treeFolder), selection_.tree());
}

void frmOutListFolder::takeChoice() {
    FolderTree& folders = selection_.tree();
    for (size_t i = 0; i < folders.size(); ++i)
        if (folders[i].holdsContacts) folders[i].folder.IsSelected = tree_.isChecked(i);
}

std::wstring frmOutListFolder::typedName() const {
    wchar_t text[256] = {};
    GetWindowTextW(control(kControl_Name), text, 256);
    return std::wstring(trimmed(text));
}

void frmOutListFolder::create() {
    const std::wstring name = typedName();
    const auto parent = tree_.current();
    if (name.empty() || !parent) return;
    cLocalizedText& texts = driver().texts;
    if (isTaken(*parent, name)) {
        tell(texts.translate(L"#07110#A folder with this name already exists. Please use another name."));
        return;
    }
    try {
        insert(*parent, makeContactsFolder(selection_.tree()[*parent].folder, name));
        tell({});
        SetWindowTextW(control(kControl_Name), L"");
        SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(kControl_treeFolder)), TRUE);
    } catch (...) {
        const Fault fault = caughtFault();
        driver().log.fault(L"Error (frmOutListFolder): ", fault);
        tell(texts.translate(L"#07124#The folder could not be created.") + L"\n" + fault.description);
    }
}

bool frmOutListFolder::isTaken(size_t parent, const std::wstring& name) {
    const FolderTree& folders = selection_.tree();
    for (size_t i = parent + 1; i < endOfBranch(folders, parent); ++i)
        if (folders[i].depth == folders[parent].depth + 1 &&
            lstrcmpiW(folders[i].folder.DisplayName.c_str(), name.c_str()) == 0)
            return true;
    return false;
}

void frmOutListFolder::insert(size_t parent, cfolder folder) {
    FolderTree& folders = selection_.tree();
    selection_.SetFoldersModified();
    // Its box comes checked, since it has been made to be searched; only OK makes that count.
    FolderNode node{folders[parent].depth + 1, true, std::move(folder)};
    const size_t place = endOfBranch(folders, parent);
    node.folder.IsSelected = true;
    folders.insert(folders.begin() + static_cast<std::ptrdiff_t>(place), std::move(node));
    tree_.insert(folders, place);
    folders[place].folder.IsSelected = false;
}

}  // namespace

void showFolderTree(HWND owner, FolderSelection& selection) {
    const VisualStyles looks;
    frmOutListFolder form(selection);
    if (DialogBoxParamW(moduleHandle(), MAKEINTRESOURCEW(kDialogResource_frmOutListFolder), owner,
                        frmOutListFolder::procedure, reinterpret_cast<LPARAM>(&form)) < 0)
        throw faultOf(HRESULT_FROM_WIN32(GetLastError()), L"frmOutListFolder");
}

}  // namespace zelbar
