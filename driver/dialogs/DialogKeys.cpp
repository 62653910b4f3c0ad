#include "dialogs/DialogKeys.h"

namespace zelbar {

namespace {

/// Marks a dialog that is served.
constexpr wchar_t kIsServed[] = L"Tessaria.DialogKeys";

}  // namespace

bool DialogKeys::serve(MSG& message) noexcept {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const HWND dialog = GetAncestor(message.hwnd, GA_ROOT);
    return GetPropW(dialog, kIsServed) && IsDialogMessageW(dialog, &message);
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
    SetPropW(dialog, kIsServed, dialog);
}

DialogKeys::~DialogKeys() {
    RemovePropW(dialog_, kIsServed);
}

}  // namespace zelbar
