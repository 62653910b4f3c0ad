#include "dialogs/FLogWindow.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dialogs/Clipboard.h"
#include "dialogs/Controls.h"
#include "dialogs/DeviceContext.h"
#include "dialogs/Form.h"
#include "dialogs/VisualStyles.h"
#include "support/Lasting.h"

namespace zelbar {

namespace {

/// How much smaller than the window the list is.
constexpr int kTwipsBesideList = 240;
constexpr int kTwipsAboveAndBelow = 480;
constexpr int kTwipsAnInch = 1440;

/// The oldest lines go in this number at a time.
constexpr int kLinesDroppedAtOnce = kMostLogLines / 10;

class LogForm final : public Form {
  public:
    explicit LogForm(const WindowParts& parts) : Form(L"FLog", parts) {}
    static std::shared_ptr<LogForm> make(const WindowParts& parts);
    void clear() { ask(LB_RESETCONTENT); }
    void add(const std::wstring& line, LogWindow::Follow follow);

  private:
    INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter) override;
    void load();
    void placeList();
    bool showsNewest() const;
    void widenFor(const std::wstring& line);
    void dropOldest();
    void copy();
    HWND list() const { return control(kControl_LLog); }
    LRESULT ask(UINT message, WPARAM wide = 0, LPARAM parameter = 0) const {
        return SendMessageW(list(), message, wide, parameter);
    }

    LONG widest_ = 0;
};

std::shared_ptr<LogForm> LogForm::make(const WindowParts& parts) {
    const VisualStyles looks;
    const auto form = std::make_shared<LogForm>(parts);
    open(form, kDialogResource_FLog);
    return form;
}

void LogForm::load() {
    dress({}, {});
    SetWindowTextW(window(), (parts_.title + L" Log").c_str());
    ModifyMenuW(GetMenu(window()), kMenu_Copy, MF_BYCOMMAND | MF_STRING, kMenu_Copy,
                parts_.texts.translate(L"#07130#&Copy").c_str());
    DrawMenuBar(window());
    placeList();
}

void LogForm::placeList() {
    RECT inner{};
    GetClientRect(window(), &inner);
    const Handle<DeviceContextTraits> context(GetDC(window()));
    const int wide = MulDiv(kTwipsBesideList, GetDeviceCaps(context.get(), LOGPIXELSX), kTwipsAnInch);
    const int high = MulDiv(kTwipsAboveAndBelow, GetDeviceCaps(context.get(), LOGPIXELSY), kTwipsAnInch);
    MoveWindow(list(), wide / 2, high / 2, std::max(0L, inner.right - wide),
               std::max(0L, inner.bottom - high), TRUE);
}

void LogForm::add(const std::wstring& line, LogWindow::Follow follow) {
    // A user who has scrolled back is reading there.
    const bool follows = follow == LogWindow::Follow::Scroll || showsNewest();
    if (ask(LB_GETCOUNT) >= kMostLogLines) dropOldest();
    const LRESULT index = ask(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    widenFor(line);
    if (follows) ask(LB_SETTOPINDEX, static_cast<WPARAM>(index));
    if (follow == LogWindow::Follow::Refresh) UpdateWindow(list());
}

bool LogForm::showsNewest() const {
    RECT inner{};
    GetClientRect(list(), &inner);
    const LRESULT inSight = inner.bottom / std::max(LRESULT{1}, ask(LB_GETITEMHEIGHT));
    return ask(LB_GETTOPINDEX) + inSight >= ask(LB_GETCOUNT);
}

void LogForm::dropOldest() {
    const LRESULT top = ask(LB_GETTOPINDEX);
    ask(WM_SETREDRAW, FALSE);
    for (int i = 0; i < kLinesDroppedAtOnce; ++i) ask(LB_DELETESTRING);
    ask(LB_SETTOPINDEX, static_cast<WPARAM>(std::max(LRESULT{0}, top - kLinesDroppedAtOnce)));
    ask(WM_SETREDRAW, TRUE);
}

void LogForm::widenFor(const std::wstring& line) {
    constexpr LONG kMargin = 8;
    const LONG width = textSize(list(), reinterpret_cast<HFONT>(ask(WM_GETFONT)), line, 0).cx + kMargin;
    if (width <= widest_) return;
    widest_ = width;
    ask(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widest_));
}

/// The lines that are marked; all of them when none is.
void LogForm::copy() {
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
    copyToClipboard(window(), text);
}

INT_PTR LogForm::handle(UINT message, WPARAM wide, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            load();
            return FALSE;
        case WM_SIZE:
            placeList();
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(wide) == kMenu_Copy) copy();
            if (LOWORD(wide) == IDCANCEL) DestroyWindow(window());
            return TRUE;
        case WM_VKEYTOITEM: {
            constexpr INT_PTR kHandled = -2, kUsual = -1;
            if (LOWORD(wide) != L'C' || GetKeyState(VK_CONTROL) >= 0) return kUsual;
            copy();
            return kHandled;
        }
        default:
            return FALSE;
    }
}

/// The way to the one window, which its user may have closed.
class FLogWindow final : public LogWindow {
  public:
    void use(const WindowParts& parts) { parts_.emplace(parts); }

    void show() noexcept override {
        quietly([this] {
            auto form = form_.lock();
            if (!form) form_ = form = LogForm::make(*parts_);
            ShowWindow(form->window(), SW_SHOWNOACTIVATE);
        });
    }
    void clear() noexcept override {
        quietly([this] {
            if (const auto form = form_.lock()) form->clear();
        });
    }
    void add(std::wstring_view line, Follow follow) noexcept override {
        quietly([&] {
            if (const auto form = form_.lock()) form->add(std::wstring(line), follow);
        });
    }

  private:
    /// What cannot be shown is lost: the log's window is no reason to fail.
    template <class Work>
    static void quietly(const Work& work) noexcept {
        try {
            work();
        } catch (...) {
            return;
        }
    }

    std::optional<WindowParts> parts_;
    std::weak_ptr<LogForm> form_;
};

}  // namespace

LogWindow& logWindow(const WindowParts& parts) {
    auto& window = lasting<FLogWindow>();
    window.use(parts);
    return window;
}

}  // namespace zelbar
