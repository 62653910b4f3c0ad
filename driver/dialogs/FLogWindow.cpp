#include "dialogs/FLogWindow.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "com/ModuleState.h"
#include "core/DriverState.h"
#include "dialogs/Clipboard.h"
#include "dialogs/Controls.h"
#include "dialogs/DialogFont.h"
#include "dialogs/VisualStyles.h"
#include "module/OwnModule.h"

namespace zelbar {

namespace {

/// How much smaller than the window the list is.
constexpr int kTwipsBesideList = 240;
constexpr int kTwipsAboveAndBelow = 480;
constexpr int kTwipsAnInch = 1440;

/// The oldest lines go in this number at a time.
constexpr int kLinesDroppedAtOnce = kMostLogLines / 10;

struct ContextTraits {
    using Type = HDC;
    static Type empty() noexcept { return nullptr; }
    static void close(Type context) noexcept { ReleaseDC(WindowFromDC(context), context); }
};

class FLogWindow final : public LogWindow {
  public:
    void show() noexcept override;
    void clear() noexcept override { ask(LB_RESETCONTENT); }
    void add(std::wstring_view line, Follow follow) noexcept override;

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    INT_PTR handle(UINT message, WPARAM wide);
    void load();
    void placeList() noexcept;
    void widenFor(const std::wstring& line);
    void dropOldest();
    void copy();
    void closed() noexcept;
    LRESULT ask(UINT message, WPARAM wide = 0, LPARAM parameter = 0) const noexcept {
        return list_ ? SendMessageW(list_, message, wide, parameter) : LB_ERR;
    }

    HWND window_ = nullptr;
    HWND list_ = nullptr;
    Font font_;
    LONG widest_ = 0;
    std::optional<LiveObject> live_;
};

/// Never destroyed: the log may write to it until the module goes.
FLogWindow& form() {
    static auto& instance = *new FLogWindow;
    return instance;
}

void FLogWindow::show() noexcept {
    try {
        const VisualStyles looks;
        if (!window_)
            CreateDialogParamW(moduleHandle(), MAKEINTRESOURCEW(kDialogResource_FLog), nullptr, procedure, 0);
        ShowWindow(window_, SW_SHOWNOACTIVATE);
    } catch (...) {
        // Out of memory: the trace is not shown.
    }
}

void FLogWindow::load() {
    live_.emplace();
    DriverState& state = driver();
    list_ = GetDlgItem(window_, kControl_LLog);
    SetWindowTextW(window_, (state.module.title + L" Log").c_str());
    ModifyMenuW(GetMenu(window_), kMenu_Copy, MF_BYCOMMAND | MF_STRING, kMenu_Copy,
                state.texts.translate(L"#07130#&Copy").c_str());
    DrawMenuBar(window_);
    font_ = ApplyCharset(window_, state.languages.CurrentCharset());
    placeList();
}

void FLogWindow::placeList() noexcept {
    RECT inner{};
    GetClientRect(window_, &inner);
    const HDC screen = GetDC(nullptr);
    const int wide = MulDiv(kTwipsBesideList, GetDeviceCaps(screen, LOGPIXELSX), kTwipsAnInch);
    const int high = MulDiv(kTwipsAboveAndBelow, GetDeviceCaps(screen, LOGPIXELSY), kTwipsAnInch);
    ReleaseDC(nullptr, screen);
    MoveWindow(list_, wide / 2, high / 2, std::max(0L, inner.right - wide), std::max(0L, inner.bottom - high),
               TRUE);
}

void FLogWindow::add(std::wstring_view line, Follow follow) noexcept {
    if (!list_) return;
    try {
        const std::wstring text(line);
        if (ask(LB_GETCOUNT) >= kMostLogLines) dropOldest();
        const LRESULT index = ask(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        widenFor(text);
        if (follow == Follow::kScroll)
            ask(LB_SETTOPINDEX, static_cast<WPARAM>(index));
        else
            UpdateWindow(list_);
    } catch (...) {
        // Out of memory: the line is lost.
    }
}

void FLogWindow::dropOldest() {
    ask(WM_SETREDRAW, FALSE);
    for (int i = 0; i < kLinesDroppedAtOnce; ++i) ask(LB_DELETESTRING);
    ask(WM_SETREDRAW, TRUE);
}

void FLogWindow::widenFor(const std::wstring& line) {
    constexpr LONG kMargin = 8;
    const Handle<ContextTraits> context(GetDC(list_));
    const auto before = SelectObject(context.get(), reinterpret_cast<HFONT>(ask(WM_GETFONT)));
    SIZE size{};
    GetTextExtentPoint32W(context.get(), line.c_str(), static_cast<int>(line.size()), &size);
    SelectObject(context.get(), before);
    if (size.cx + kMargin <= widest_) return;
    widest_ = size.cx + kMargin;
    ask(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest_));
}

/// The lines that are marked; all of them when none is.
void FLogWindow::copy() {
    std::vector<int> lines(static_cast<size_t>(std::max(LRESULT{0}, ask(LB_GETSELCOUNT))));
    ask(LB_GETSELITEMS, lines.size(), reinterpret_cast<LPARAM>(lines.data()));
    if (lines.empty())
        for (int i = 0; i < ask(LB_GETCOUNT); ++i) lines.push_back(i);
    std::wstring text;
    for (const int line : lines) {
        const auto index = static_cast<WPARAM>(line);
        std::wstring part(static_cast<size_t>(std::max(LRESULT{0}, ask(LB_GETTEXTLEN, index))), L'\0');
        ask(LB_GETTEXT, index, reinterpret_cast<LPARAM>(part.data()));
        text += part + L"\r\n";
    }
    copyToClipboard(window_, text);
}

INT_PTR CALLBACK FLogWindow::procedure(HWND window, UINT message, WPARAM wide, LPARAM) noexcept {
    FLogWindow& self = form();
    if (message == WM_INITDIALOG) self.window_ = window;
    if (self.window_ != window) return FALSE;
    try {
        return self.handle(message, wide);
    } catch (...) {
        return FALSE;
    }
}

INT_PTR FLogWindow::handle(UINT message, WPARAM wide) {
    switch (message) {
        case WM_INITDIALOG:
            load();
            return FALSE;
        case WM_SIZE:
            placeList();
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wide) == kMenu_Copy) copy();
            if (LOWORD(wide) == IDCANCEL) DestroyWindow(window_);
            return TRUE;
        case WM_VKEYTOITEM: {
            constexpr INT_PTR kHandled = -2, kUsual = -1;
            if (LOWORD(wide) != L'C' || GetKeyState(VK_CONTROL) >= 0) return kUsual;
            copy();
            return kHandled;
        }
        case WM_NCDESTROY:
            closed();
            return TRUE;
        default:
            return FALSE;
    }
}

void FLogWindow::closed() noexcept {
    window_ = nullptr;
    list_ = nullptr;
    widest_ = 0;
    font_.reset();
    live_.reset();
}

}  // namespace

LogWindow& logWindow() {
    return form();
}

}  // namespace zelbar
