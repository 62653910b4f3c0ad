#include "dialogs/Form.h"

#include "automation/Fault.h"
#include "dialogs/WindowIcon.h"
#include "module/OwnModule.h"

namespace zelbar {

void Form::open(const std::shared_ptr<Form>& form, int dialogTemplate) {
    form->self_ = form;
    if (CreateDialogParamW(moduleHandle(), MAKEINTRESOURCEW(dialogTemplate), nullptr, procedure,
                           reinterpret_cast<LPARAM>(form.get())))
        return;
    const Fault fault = faultOf(HRESULT_FROM_WIN32(GetLastError()), form->name_);
    form->self_.reset();
    throw fault;
}

void Form::run(const std::shared_ptr<Form>& form, int dialogTemplate, HWND owner) {
    form->self_ = form;
    const INT_PTR result = DialogBoxParamW(moduleHandle(), MAKEINTRESOURCEW(dialogTemplate), owner, procedure,
                                           reinterpret_cast<LPARAM>(form.get()));
    form->self_.reset();
    if (result < 0) throw faultOf(HRESULT_FROM_WIN32(GetLastError()), form->name_);
}

INT_PTR CALLBACK Form::procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(window, DWLP_USER, parameter);
    auto* const behind = reinterpret_cast<Form*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!behind) return FALSE;
    const std::shared_ptr<Form> form = behind->self_;
    form->window_ = window;
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, DWLP_USER, 0);
        form->window_ = nullptr;
        form->keys_.reset();
        form->self_.reset();
        // Not handled: what the system has made for the dialog, its font among it, it gives back here itself.
        return FALSE;
    }
    try {
        return form->serve(message, wide, parameter);
    } catch (...) {
        const Fault fault = caughtFault();
        form->parts_.log.trace(L"Error (", form->name_, L"): ", fault.description, L" in ", fault.source);
        return FALSE;
    }
}

INT_PTR Form::serve(UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_INITDIALOG) giveIcon(window_);
    if (message == WM_SIZE) anchors_.move();
    if (message == WM_GETMINMAXINFO) anchors_.limit(*reinterpret_cast<MINMAXINFO*>(parameter));
    return handle(message, wide, parameter);
}

void Form::dress(std::initializer_list<Text> texts, std::initializer_list<Anchors::Anchor> anchors) {
    font_ = ApplyCharset(window_, parts_.languages.CurrentCharset());
    for (const Text& line : texts)
        SetWindowTextW(line.control ? control(line.control) : window_,
                       parts_.texts.translate(line.text).c_str());
    if (anchors.size() > 0) anchors_.record(window_, anchors);
}

}  // namespace zelbar
