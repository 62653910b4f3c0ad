#include "dialogs/frmOutSelFolder.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <vector>

#include "com/ModuleState.h"
#include "core/DriverState.h"
#include "dialogs/Anchors.h"
#include "dialogs/CheckList.h"
#include "dialogs/Controls.h"
#include "dialogs/DialogFont.h"
#include "dialogs/DialogKeys.h"
#include "dialogs/FolderSelection.h"
#include "dialogs/VisualStyles.h"
#include "dialogs/frmOutListFolder.h"
#include "module/OwnModule.h"

namespace zelbar {

namespace {

constexpr UINT_PTR kSearchTimer = 1;
/// How often the search goes on, and how long at a time: between two times the user is served.
constexpr UINT kPauseMilliseconds = 10;
constexpr DWORD kSliceMilliseconds = 40;
/// Most mailboxes are through before the first slice ends.
constexpr DWORD kFirstSliceMilliseconds = 250;

constexpr UINT kShowTree = WM_APP + 1;

/// Marks the time in which a question to Outlook is under way: messages may come in while it is answered.
class Asking {
  public:
    explicit Asking(bool& flag) : flag_(flag) { flag_ = true; }
    ~Asking() { flag_ = false; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;

  private:
    bool& flag_;
};

class frmOutSelFolder {
  public:
    static void show();

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter);
    INT_PTR command(WPARAM wide);

    void load();
    void setTexts();
    void arrange();
    void search(DWORD milliseconds);
    bool ask(DWORD milliseconds);
    void searched();
    void tell(const wchar_t* text);
    void enable(bool usable);
    void fill();
    void focus(int id);
    void showTree();
    void save();
    void close();

    HWND control(int id) const { return GetDlgItem(window_, id); }

    HWND window_ = nullptr;
    LiveObject live_;
    FolderSelection selection_;
    std::vector<cfolder*> found_;  // the lines of the list
    CheckList list_;
    Anchors anchors_;
    Font font_;
    std::optional<DialogKeys> keys_;
    bool searching_ = true;
    bool asking_ = false;
    bool closing_ = false;  // the user has closed the window while Outlook was asked
};

/// The window that is open. Never destroyed: when the process ends, its window is gone, and references to
/// Outlook may not be released any more.
std::shared_ptr<frmOutSelFolder>& current() {
    static auto& instance = *new std::shared_ptr<frmOutSelFolder>;
    return instance;
}

void frmOutSelFolder::show() {
    if (const auto form = current()) {
        if (IsIconic(form->window_)) ShowWindow(form->window_, SW_RESTORE);
        SetForegroundWindow(GetLastActivePopup(form->window_));
        return;
    }
    const auto form = current() = std::make_shared<frmOutSelFolder>();
    const VisualStyles looks;
    if (!CreateDialogParamW(moduleHandle(), MAKEINTRESOURCEW(kDialogResource_frmOutSelFolder), nullptr,
                            procedure, reinterpret_cast<LPARAM>(form.get()))) {
        const Fault fault = faultOf(HRESULT_FROM_WIN32(GetLastError()), L"frmOutSelFolder");
        current().reset();
        throw fault;
    }
    form->load();
}

INT_PTR CALLBACK frmOutSelFolder::procedure(HWND window, UINT message, WPARAM wide,
                                            LPARAM parameter) noexcept {
    // What a message leads to may close the window.
    const auto form = current();
    if (!form) return FALSE;
    if (message == WM_INITDIALOG) form->window_ = window;
    if (form->window_ != window) return FALSE;
    if (message == WM_NCDESTROY) {
        form->window_ = nullptr;
        form->keys_.reset();
        current().reset();
        return TRUE;
    }
    try {
        return form->handle(message, wide, parameter);
    } catch (...) {
        driver().log.fault(L"Error (frmOutSelFolder): ", caughtFault());
        return FALSE;
    }
}

INT_PTR frmOutSelFolder::handle(UINT message, WPARAM wide, LPARAM parameter) {
    switch (message) {
        case WM_INITDIALOG:
            return TRUE;
        case WM_COMMAND:
            return command(wide);
        case WM_NOTIFY:
            return list_.notified(*reinterpret_cast<NMHDR*>(parameter));
        case WM_TIMER:
            if (wide == kSearchTimer) search(kSliceMilliseconds);
            return TRUE;
        case WM_SETCURSOR:
            if (!searching_ || LOWORD(parameter) != HTCLIENT) return FALSE;
            SetCursor(LoadCursorW(nullptr, IDC_APPSTARTING));
            SetWindowLongPtrW(window_, DWLP_MSGRESULT, TRUE);
            return TRUE;
        case WM_SIZE:
            anchors_.move();
            return TRUE;
        case WM_GETMINMAXINFO:
            anchors_.limit(*reinterpret_cast<MINMAXINFO*>(parameter));
            return TRUE;
        case kShowTree:
            showTree();
            return TRUE;
        default:
            return FALSE;
    }
}

INT_PTR frmOutSelFolder::command(WPARAM wide) {
    switch (LOWORD(wide)) {
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
            PostMessageW(window_, kShowTree, 0, 0);
            return TRUE;
        default:
            return FALSE;
    }
}

void frmOutSelFolder::load() {
    DriverState& state = driver();
    state.log.trace(L"frmOutSelFolder_Load()");
    font_ = ApplyCharset(window_, state.languages.CurrentCharset());
    setTexts();
    arrange();
    list_.attach(window_, kControl_listFolder,
                 {[this] { return found_.size(); },
                  [this](size_t line) -> const std::wstring& { return found_[line]->FullName; },
                  [this](size_t line) { return found_[line]->IsSelected; },
                  [this](size_t line, bool checked) { found_[line]->IsSelected = checked; }});
    keys_.emplace(window_);
    tell(L"#07112#Searching for contacts folders...");
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
    focus(IDCANCEL);
    enable(false);
    UpdateWindow(window_);
    search(kFirstSliceMilliseconds);
}

void frmOutSelFolder::setTexts() {
    cLocalizedText& texts = driver().texts;
    SetWindowTextW(window_, texts.translate(L"#07100#Outlook contacts folders selection").c_str());
    struct Text {
        int control;
        const wchar_t* text;
    };
    for (const Text& line :
         {Text{kControl_Label1, L"#07101#Contacts folders :"},
          Text{kControl_Label2, L"#07102#If the selection is modified, the database must be reinitialized."},
          Text{kControl_ReinitCheck, L"#07111#Reinitialize (Close and restart application)"},
          Text{kControl_CmdSelect, L"#01008#&Select"}, Text{IDOK, L"#01000#&OK"},
          Text{IDCANCEL, L"#01001#&Cancel"}})
        SetWindowTextW(control(line.control), texts.translate(line.text).c_str());
}

void frmOutSelFolder::arrange() {
    using enum Anchors::Edge;
    anchors_.record(window_, {{kControl_Label1, kLeft | kTop | kRight},
                              {kControl_listFolder, kLeft | kTop | kRight | kBottom},
                              {kControl_PSTLabel, kLeft | kRight | kBottom},
                              {kControl_Label2, kLeft | kRight | kBottom},
                              {kControl_ReinitCheck, kLeft | kRight | kBottom},
                              {kControl_CmdSelect, kLeft | kBottom},
                              {IDOK, kRight | kBottom},
                              {IDCANCEL, kRight | kBottom}});
}

void frmOutSelFolder::search(DWORD milliseconds) {
    if (!searching_ || asking_) return;
    KillTimer(window_, kSearchTimer);
    const bool more = ask(milliseconds);
    if (!window_) return;
    if (closing_) {
        DestroyWindow(window_);
    } else if (more) {
        SetTimer(window_, kSearchTimer, kPauseMilliseconds, nullptr);
    } else {
        searched();
    }
}

bool frmOutSelFolder::ask(DWORD milliseconds) {
    const Asking asking(asking_);
    const DWORD start = GetTickCount();
    while (!closing_ && GetTickCount() - start < milliseconds) {
        if (selection_.search()) continue;
        if (!closing_) selection_.load();
        return false;
    }
    return true;
}

void frmOutSelFolder::searched() {
    searching_ = false;
    ShowWindow(control(kControl_PSTLabel), SW_HIDE);
    if (!selection_.reached())
        tell(L"#07113#Outlook is not running: its folders cannot be shown.");
    else if (!selection_.complete())
        tell(L"#07114#Some folders could not be read and are missing here.");
    else if (selection_.StoresChanged())
        tell(L"#07103#The selection has changed because of contacts files added or removed in Outlook.");
    CheckDlgButton(window_, kControl_ReinitCheck, selection_.reinitialize() ? BST_CHECKED : BST_UNCHECKED);
    fill();
    enable(true);
    // The client's own window keeps the keyboard when the user has gone on with it meanwhile.
    if (GetActiveWindow() == window_) focus(kControl_listFolder);
}

void frmOutSelFolder::fill() {
    found_ = selection_.folders();
    list_.fill();
}

void frmOutSelFolder::focus(int id) {
    SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(id)), TRUE);
}

void frmOutSelFolder::tell(const wchar_t* text) {
    SetWindowTextW(control(kControl_PSTLabel), driver().texts.translate(text).c_str());
    ShowWindow(control(kControl_PSTLabel), SW_SHOWNA);
}

void frmOutSelFolder::enable(bool usable) {
    for (const int id : {kControl_listFolder, kControl_ReinitCheck, kControl_CmdSelect, IDOK})
        EnableWindow(control(id), usable);
}

void frmOutSelFolder::showTree() {
    // A second click may have come before the first one was served.
    if (searching_ || !IsWindowEnabled(window_)) return;
    showFolderTree(window_, selection_);
    if (window_) fill();
}

void frmOutSelFolder::save() {
    selection_.save(IsDlgButtonChecked(window_, kControl_ReinitCheck) == BST_CHECKED);
}

void frmOutSelFolder::close() {
    if (asking_) {
        closing_ = true;
        ShowWindow(window_, SW_HIDE);
        return;
    }
    DestroyWindow(window_);
}

}  // namespace

void showFolderSelection() {
    frmOutSelFolder::show();
}

}  // namespace zelbar
