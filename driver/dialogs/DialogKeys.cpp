#include "dialogs/DialogKeys.h"

#include <algorithm>
#include <vector>

#include "support/Handle.h"

namespace zelbar {

namespace {

struct HookTraits {
    using Type = HHOOK;
    static Type empty() noexcept { return nullptr; }
    static void close(Type hook) noexcept { UnhookWindowsHookEx(hook); }
};

/// The dialogs that are open, and the hook that serves them: one for all.
struct Served {
    std::vector<HWND> dialogs;
    Handle<HookTraits> hook;
};

Served& served() {
    static Served instance;
    return instance;
}

bool serve(MSG& message) noexcept {
    if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST) return false;
    const HWND dialog = GetAncestor(message.hwnd, GA_ROOT);
    const auto& dialogs = served().dialogs;
    return std::find(dialogs.begin(), dialogs.end(), dialog) != dialogs.end() &&
           IsDialogMessageW(dialog, &message);
}

LRESULT CALLBACK serveKeys(int code, WPARAM removal, LPARAM parameter) noexcept {
    auto& message = *reinterpret_cast<MSG*>(parameter);
    if (code == HC_ACTION && removal == PM_REMOVE && serve(message)) {
        // The client's loop dispatches what is left of it to nobody.
        message.message = WM_NULL;
        message.wParam = 0;
        message.lParam = 0;
    }
    return CallNextHookEx(nullptr, code, removal, parameter);
}

}  // namespace

DialogKeys::DialogKeys(HWND dialog) : dialog_(dialog) {
    Served& all = served();
    all.dialogs.push_back(dialog);
    if (!all.hook) all.hook.reset(SetWindowsHookExW(WH_GETMESSAGE, serveKeys, nullptr, GetCurrentThreadId()));
}

DialogKeys::~DialogKeys() {
    Served& all = served();
    std::erase(all.dialogs, dialog_);
    if (all.dialogs.empty()) all.hook.reset();
}

}  // namespace zelbar
