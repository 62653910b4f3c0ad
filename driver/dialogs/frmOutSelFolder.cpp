#include "dialogs/frmOutSelFolder.h"

#include <windows.h>

#include <memory>
#include <vector>

#include "dialogs/Asking.h"
#include "dialogs/CheckList.h"
#include "dialogs/Controls.h"
#include "dialogs/FolderSelection.h"
#include "dialogs/Form.h"
#include "dialogs/SelectionTexts.h"
#include "dialogs/VisualStyles.h"
#include "dialogs/frmOutListFolder.h"
#include "support/Lasting.h"

namespace zelbar {

namespace {

constexpr UINT_PTR kSearchTimer = 1;
/// How often the search goes on, and how long at a time: between two times the user is served.
constexpr UINT kPauseMilliseconds = 10;
constexpr DWORD kSliceMilliseconds = 40;
/// Most mailboxes are through before the first slice ends.
constexpr DWORD kFirstSliceMilliseconds = 250;

constexpr UINT kShowTree = WM_APP + 1;

class frmOutSelFolder final : public Form {
  public:
    explicit frmOutSelFolder(const WindowParts& parts) : Form(L"frmOutSelFolder", parts) {}
    static void show(const WindowParts& parts);

  private:
    INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter) override;
    INT_PTR command(int id);

    static std::shared_ptr<frmOutSelFolder> make(const WindowParts& parts);
    void comeBack();
    void load();
    void arrange();
    void startSearch();
    void search(DWORD milliseconds);
    bool ask(DWORD milliseconds);
    void searched();
    void fill(size_t current);
    void count();
    void hint(const std::wstring& text);
    void enable(bool usable);
    bool isRisky() const { return found_.empty() || !selection_->complete(); }
    void showTree();
    void save();
    void close();

    std::unique_ptr<FolderSelection> selection_;
    std::vector<cfolder*> found_;  // the lines of the list
    CheckList list_;
    bool searching_ = true;
    bool asking_ = false;
    bool closing_ = false;  // the user has closed the window while Outlook was asked
};

void frmOutSelFolder::show(const WindowParts& parts) {
    auto& last = lasting<std::weak_ptr<frmOutSelFolder>>();
    if (const auto form = last.lock(); form && form->window()) return form->comeBack();
    const auto form = make(parts);
    last = form;
    complete(form, [&] { form->load(); });
}

std::shared_ptr<frmOutSelFolder> frmOutSelFolder::make(const WindowParts& parts) {
    const VisualStyles looks;
    const auto form = std::make_shared<frmOutSelFolder>(parts);
    open(form, kDialogResource_frmOutSelFolder);
    complete(form, [&] {
        form->list_.attach(
            form->window(), kControl_listFolder,
            {[self = form.get()] { return self->found_.size(); },
             [self = form.get()](size_t line) -> const std::wstring& { return self->found_[line]->FullName; },
             [self = form.get()](size_t line) { return self->found_[line]->IsSelected; },
             [self = form.get()](size_t line, bool checked) {
                 self->found_[line]->IsSelected = checked;
                 self->count();
             }});
    });
    return form;
}

/// Also when its user has closed it, but Outlook has not yet answered what it was asked before.
void frmOutSelFolder::comeBack() {
    closing_ = false;
    ShowWindow(window(), IsIconic(window()) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(GetLastActivePopup(window()));
}

INT_PTR frmOutSelFolder::handle(UINT message, WPARAM wide, LPARAM parameter) {
    switch (message) {
        case WM_INITDIALOG:
            return TRUE;
        case WM_COMMAND:
            return command(LOWORD(wide));
        case WM_NOTIFY:
            return list_.notified(*reinterpret_cast<NMHDR*>(parameter));
        case WM_TIMER:
            if (wide == kSearchTimer) search(kSliceMilliseconds);
            return TRUE;
        case WM_SETCURSOR:
            if (!searching_ || LOWORD(parameter) != HTCLIENT) return FALSE;
            SetCursor(LoadCursorW(nullptr, IDC_APPSTARTING));
            SetWindowLongPtrW(window(), DWLP_MSGRESULT, TRUE);
            return TRUE;
        case kShowTree:
            showTree();
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR frmOutSelFolder::command(int id) {
    switch (id) {
        case IDOK:
            if (searching_) return TRUE;
            save();
            close();
            return TRUE;
        case IDCANCEL:
            close();
            return TRUE;
        case kControl_CmdSelect:
            // Not from within the keyboard hook, in which this may have been called.
            PostMessageW(window(), kShowTree, 0, 0);
            return TRUE;
        case kControl_CmdRetry:
            if (!searching_) startSearch();
            return TRUE;
        default:
            return FALSE;
    }
}

void frmOutSelFolder::load() {
    parts_.log.trace(L"frmOutSelFolder_Load()");
    arrange();
    takeKeys();
    ShowWindow(window(), SW_SHOWNORMAL);
    SetForegroundWindow(window());
    startSearch();
}

void frmOutSelFolder::arrange() {
    using enum Anchors::Edge;
    dress({{0, L"#07100#Outlook contacts folders selection"},
           {kControl_Label1, L"#07101#Contacts folders :"},
           {kControl_Label2, L"#07102#If the selection is modified, the database must be reinitialized."},
           {kControl_ReinitCheck, L"#07111#Reinitialize (Close and restart application)"},
           {kControl_CmdSelect, L"#01008#&Select"},
           {kControl_CmdRetry, L"#07119#&Try again"},
           {IDOK, L"#01000#&OK"},
           {IDCANCEL, L"#01001#&Cancel"}},
          {{kControl_Label1, kLeft | kTop | kRight},
           {kControl_Count, kTop | kRight},
           {kControl_listFolder, kLeft | kTop | kRight | kBottom},
           {kControl_PSTLabel, kLeft | kRight | kBottom},
           {kControl_Label2, kLeft | kRight | kBottom},
           {kControl_ReinitCheck, kLeft | kRight | kBottom},
           {kControl_CmdSelect, kLeft | kBottom},
           {kControl_CmdRetry, kLeft | kBottom},
           {IDOK, kRight | kBottom},
           {IDCANCEL, kRight | kBottom}});
}

void frmOutSelFolder::startSearch() {
    searching_ = true;
    found_.clear();
    selection_ = std::make_unique<FolderSelection>(parts_.outlook, parts_.log);
    list_.fill(0);
    focus(IDCANCEL);
    enable(false);
    ShowWindow(control(kControl_CmdRetry), SW_HIDE);
    SetWindowTextW(control(kControl_Count), L"");
    hint(searchingText(parts_.texts, 0));
    UpdateWindow(window());
    search(kFirstSliceMilliseconds);
}

void frmOutSelFolder::search(DWORD milliseconds) {
    if (!searching_ || asking_) return;
    KillTimer(window(), kSearchTimer);
    const bool more = ask(milliseconds);
    if (!window()) return;
    if (closing_) {
        DestroyWindow(window());
    } else if (more) {
        hint(searchingText(parts_.texts, selection_->seen()));
        SetTimer(window(), kSearchTimer, kPauseMilliseconds, nullptr);
    } else {
        searched();
    }
}

bool frmOutSelFolder::ask(DWORD milliseconds) {
    const Asking asking(asking_);
    const DWORD start = GetTickCount();
    while (window() && !closing_ && GetTickCount() - start < milliseconds) {
        if (selection_->search()) continue;
        if (window() && !closing_) selection_->load();
        return false;
    }
    return true;
}

void frmOutSelFolder::searched() {
    searching_ = false;
    CheckDlgButton(window(), kControl_ReinitCheck, selection_->reinitialize() ? BST_CHECKED : BST_UNCHECKED);
    found_ = selection_->folders();
    fill(firstSelected(found_));
    enable(true);
    ShowWindow(control(kControl_CmdRetry), selection_->complete() ? SW_HIDE : SW_SHOWNA);
    makeDefault(isRisky() ? IDCANCEL : IDOK);
    // The client's own window keeps the keyboard when the user has gone on with it meanwhile.
    if (GetActiveWindow() == window()) focus(isRisky() ? IDCANCEL : kControl_listFolder);
    // The pointer is another one from now on, and not only when it is moved.
    POINT pointer{};
    GetCursorPos(&pointer);
    const HWND below = WindowFromPoint(pointer);
    if (below == window() || IsChild(window(), below))
        SendMessageW(below, WM_SETCURSOR, reinterpret_cast<WPARAM>(below),
                     MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
}

void frmOutSelFolder::fill(size_t current) {
    list_.fill(current);
    count();
    hint(hintText(parts_.texts, *selection_, found_.size()));
}

void frmOutSelFolder::count() {
    SetWindowTextW(control(kControl_Count), countText(parts_.texts, found_).c_str());
}

void frmOutSelFolder::hint(const std::wstring& text) {
    SetWindowTextW(control(kControl_PSTLabel), text.c_str());
    ShowWindow(control(kControl_PSTLabel), text.empty() ? SW_HIDE : SW_SHOWNA);
}

void frmOutSelFolder::enable(bool usable) {
    for (const int id : {kControl_listFolder, kControl_ReinitCheck, kControl_CmdSelect, IDOK})
        EnableWindow(control(id), usable);
}

void frmOutSelFolder::showTree() {
    // A second click may have come before the first one was served.
    if (searching_ || !IsWindowEnabled(window())) return;
    const auto line = list_.current();
    const std::wstring before = line ? found_[*line]->FullName : L"";
    showFolderTree(parts_, window(), *selection_);
    found_ = selection_->folders();
    if (!window()) return;
    size_t current = found_.size();
    while (current > 0 && found_[current - 1]->FullName != before) --current;
    fill(current > 0 ? current - 1 : 0);
}

void frmOutSelFolder::save() {
    selection_->save(IsDlgButtonChecked(window(), kControl_ReinitCheck) == BST_CHECKED);
}

void frmOutSelFolder::close() {
    // The tree is open on top of it.
    if (!IsWindowEnabled(window())) return;
    if (asking_) {
        closing_ = true;
        ShowWindow(window(), SW_HIDE);
        return;
    }
    DestroyWindow(window());
}

}  // namespace

void showFolderSelection(const WindowParts& parts) {
    frmOutSelFolder::show(parts);
}

}  // namespace zelbar
