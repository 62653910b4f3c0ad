#include "dialogs/frmMessageForm.h"

#include <windows.h>

#include <algorithm>
#include <memory>
#include <optional>

#include "dialogs/Controls.h"
#include "dialogs/DeviceContext.h"
#include "dialogs/Form.h"
#include "dialogs/VisualStyles.h"
#include "support/Lasting.h"

namespace zelbar {

namespace {

constexpr wchar_t kNoTitle[] = L"__NO_TITLE__";

class frmMessageForm final : public Form {
  public:
    explicit frmMessageForm(const WindowParts& parts) : Form(L"frmMessageForm", parts) {}
    static std::shared_ptr<frmMessageForm> make(const WindowParts& parts, const std::wstring& title,
                                                const std::wstring& text);
    void show() const;

  private:
    INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter) override;
    void layOut(const std::wstring& text);
};

std::shared_ptr<frmMessageForm> frmMessageForm::make(const WindowParts& parts, const std::wstring& title,
                                                     const std::wstring& text) {
    const VisualStyles looks;
    const auto form = std::make_shared<frmMessageForm>(parts);
    open(form, kDialogResource_frmMessageForm);
    complete(form, [&] {
        form->takeKeys();
        form->dress({{IDOK, L"#01000#&OK"}}, {});
        SetWindowTextW(form->window(), title == kNoTitle ? parts.title.c_str() : title.c_str());
        form->layOut(text);
    });
    return form;
}

void frmMessageForm::show() const {
    ShowWindow(window(), SW_SHOWNORMAL);
    SetForegroundWindow(window());
}

void frmMessageForm::layOut(const std::wstring& text) {
    // In dialog units: margin; least width of the text; its most width and height; the button.
    RECT margin{7, 7, 90, 0}, most{0, 0, 220, 160}, button{0, 0, 50, 14};
    for (RECT* units : {&margin, &most, &button}) MapDialogRect(window(), units);

    const HWND label = control(kControl_Message), ok = control(IDOK);
    SetWindowTextW(label, text.c_str());
    const SIZE words =
        textSize(label, reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)), text, most.right);
    const LONG width = std::max(words.cx, margin.right), height = std::min(words.cy, most.bottom);
    const LONG buttonTop = height + 2 * margin.top;
    MoveWindow(label, margin.left, margin.top, width, height, FALSE);
    MoveWindow(ok, margin.left + (width - button.right) / 2, buttonTop, button.right, button.bottom, FALSE);

    RECT frame{0, 0, width + 2 * margin.left, buttonTop + button.bottom + margin.top};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongW(window(), GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(window(), GWL_EXSTYLE)));
    const int frameWidth = frame.right - frame.left, frameHeight = frame.bottom - frame.top;
    RECT screen{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    SetWindowPos(window(), HWND_TOPMOST, (screen.left + screen.right - frameWidth) / 2,
                 (screen.top + screen.bottom - frameHeight) / 2, frameWidth, frameHeight, SWP_NOACTIVATE);
}

INT_PTR frmMessageForm::handle(UINT message, WPARAM wide, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message != WM_COMMAND || (LOWORD(wide) != IDOK && LOWORD(wide) != IDCANCEL)) return FALSE;
    DestroyWindow(window());
    return TRUE;
}

/// The way to the one window that is open, if any.
class MessageForms final : public MessageWindow {
  public:
    void use(const WindowParts& parts) { parts_.emplace(parts); }

    bool isOpen() const noexcept override { return current() != nullptr; }
    void ShowMessage(const std::wstring& title, int, const std::wstring& text) override {
        if (const auto before = current()) DestroyWindow(before->window());
        const auto form = frmMessageForm::make(*parts_, title, text);
        form_ = form;
        form->show();
    }
    void Show() override {
        if (const auto form = current()) form->show();
    }

  private:
    std::shared_ptr<frmMessageForm> current() const noexcept {
        const auto form = form_.lock();
        return form && form->window() ? form : nullptr;
    }

    std::optional<WindowParts> parts_;
    std::weak_ptr<frmMessageForm> form_;
};

}  // namespace

MessageWindow& messageForm(const WindowParts& parts) {
    auto& forms = lasting<MessageForms>();
    forms.use(parts);
    return forms;
}

}  // namespace zelbar
