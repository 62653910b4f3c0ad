#include "dialogs/frmMessageForm.h"

#include <windows.h>

#include <algorithm>
#include <optional>

#include "com/ModuleState.h"
#include "core/DriverState.h"
#include "dialogs/DialogKeys.h"
#include "dialogs/VisualStyles.h"
#include "module/OwnModule.h"
#include "support/Handle.h"

namespace zelbar {

namespace {

constexpr wchar_t kNoTitle[] = L"__NO_TITLE__";

struct WindowContextTraits {
    using Type = HDC;
    static Type empty() noexcept { return nullptr; }
    static void close(Type context) noexcept { ReleaseDC(WindowFromDC(context), context); }
};

/// A dialog without controls: they are made once the text has been measured.
struct DialogTemplate {
    DLGTEMPLATE dialog{
        WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SHELLFONT, WS_EX_TOPMOST, 0, 0, 0, 0, 0};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
    WORD pointSize = 8;
    wchar_t face[15] = L"MS Shell Dlg 2";
};

class frmMessageForm final : public MessageWindow {
  public:
    bool isOpen() const noexcept override { return window_ != nullptr; }
    void ShowMessage(const std::wstring& title, int option, const std::wstring& text) override;
    void Show() override;

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    void layOut(const std::wstring& text);
    SIZE textSize(const std::wstring& text, LONG widest, LONG highest) const;
    HWND addControl(const wchar_t* windowClass, const std::wstring& text, DWORD style, WORD id,
                    const RECT& place) const;
    void closed() noexcept;

    HWND window_ = nullptr;  // destroys itself, and is forgotten here as it does
    std::optional<DialogKeys> keys_;
    std::optional<LiveObject> live_;
};

frmMessageForm& form() {
    static frmMessageForm instance;
    return instance;
}

void frmMessageForm::ShowMessage(const std::wstring& title, int, const std::wstring& text) {
    if (window_) DestroyWindow(window_);
    const VisualStyles looks;
    static const DialogTemplate kTemplate;
    window_ = CreateDialogIndirectParamW(moduleHandle(), &kTemplate.dialog, nullptr, procedure, 0);
    if (!window_) throw faultOf(HRESULT_FROM_WIN32(GetLastError()), L"frmMessageForm");
    live_.emplace();
    keys_.emplace(window_);
    SetWindowTextW(window_, title == kNoTitle ? driver().module.title.c_str() : title.c_str());
    layOut(text);
    Show();
}

void frmMessageForm::Show() {
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
}

SIZE frmMessageForm::textSize(const std::wstring& text, LONG widest, LONG highest) const {
    const Handle<WindowContextTraits> context(GetDC(window_));
    SelectObject(context.get(), reinterpret_cast<HFONT>(SendMessageW(window_, WM_GETFONT, 0, 0)));
    RECT needed{0, 0, widest, 0};
    DrawTextW(context.get(), text.c_str(), static_cast<int>(text.size()), &needed,
              DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
    return {needed.right, std::min(needed.bottom, highest)};
}

void frmMessageForm::layOut(const std::wstring& text) {
    // In dialog units: margin; least width of the text; its most width and height; the button.
    RECT margin{7, 7, 90, 0}, most{0, 0, 220, 160}, button{0, 0, 50, 14};
    for (RECT* units : {&margin, &most, &button}) MapDialogRect(window_, units);

    const SIZE words = textSize(text, most.right, most.bottom);
    const LONG width = std::max(words.cx, margin.right);
    const LONG buttonLeft = margin.left + (width - button.right) / 2;
    const LONG buttonTop = words.cy + 2 * margin.top;
    addControl(L"STATIC", text, SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL, 0,
               {margin.left, margin.top, margin.left + width, margin.top + words.cy});
    const HWND ok =
        addControl(L"BUTTON", driver().texts.translate(L"#01000#"), BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK,
                   {buttonLeft, buttonTop, buttonLeft + button.right, buttonTop + button.bottom});

    RECT frame{0, 0, width + 2 * margin.left, buttonTop + button.bottom + margin.top};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(window_, GWL_EXSTYLE)));
    const int frameWidth = frame.right - frame.left, frameHeight = frame.bottom - frame.top;
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    SetWindowPos(window_, HWND_TOPMOST, (screen.left + screen.right - frameWidth) / 2,
                 (screen.top + screen.bottom - frameHeight) / 2, frameWidth, frameHeight, SWP_NOACTIVATE);
    SetFocus(ok);
}

HWND frmMessageForm::addControl(const wchar_t* windowClass, const std::wstring& text, DWORD style, WORD id,
                                const RECT& place) const {
    const HWND control =
        CreateWindowExW(0, windowClass, text.c_str(), WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                        place.right - place.left, place.bottom - place.top, window_,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), moduleHandle(), nullptr);
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window_, WM_GETFONT, 0, 0)), FALSE);
    return control;
}

INT_PTR CALLBACK frmMessageForm::procedure(HWND window, UINT message, WPARAM wide, LPARAM) noexcept {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wide) != IDOK && LOWORD(wide) != IDCANCEL) return FALSE;
            DestroyWindow(window);
            return TRUE;
        case WM_NCDESTROY:
            form().closed();
            return TRUE;
        default:
            return FALSE;
    }
}

void frmMessageForm::closed() noexcept {
    window_ = nullptr;
    keys_.reset();
    live_.reset();
}

}  // namespace

MessageWindow& messageForm() {
    return form();
}

}  // namespace zelbar
