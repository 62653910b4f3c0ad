#include "dialogs/DialogKeys.h"

namespace zelbar {

bool DialogKeys::serve(MSG& message) noexcept {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const HWND dialog = GetAncestor(message.hwnd, GA_ROOT);
    const DialogKeys* served = newest_;
    while (served && served->dialog_ != dialog) served = served->older_;
    return served && IsDialogMessageW(dialog, &message);
}

LRESULT CALLBACK DialogKeys::serveKeys(int code, WPARAM removal, LPARAM parameter) noexcept {
    auto& message = *reinterpret_cast<MSG*>(parameter);
    if (code == HC_ACTION && removal == PM_REMOVE && serve(message)) {
        // The client's loop, and the hooks of other dialogs, find nothing of it any more.
        message.message = WM_NULL;
        message.wParam = 0;
        message.lParam = 0;
    }
    return CallNextHookEx(nullptr, code, removal, parameter);
}

DialogKeys::DialogKeys(HWND dialog)
    : dialog_(dialog), hook_(SetWindowsHookExW(WH_GETMESSAGE, serveKeys, nullptr, GetCurrentThreadId())) {
    newest_ = this;
}

DialogKeys::~DialogKeys() {
    DialogKeys** place = &newest_;
    while (*place != this) place = &(*place)->older_;
    *place = older_;
}

}  // namespace zelbar
