#include "client/OpenWindows.h"

#include <windows.h>

namespace pimcall {
namespace {

/// A window can also vanish without a message for this thread's queue.
constexpr DWORD kLongestNapMilliseconds = 100;

BOOL CALLBACK noteVisible(HWND window, LPARAM found) noexcept {
    if (!IsWindowVisible(window)) return TRUE;
    *reinterpret_cast<bool*>(found) = true;
    return FALSE;
}

}  // namespace

bool hasOpenWindow() {
    bool found = false;
    EnumThreadWindows(GetCurrentThreadId(), noteVisible, reinterpret_cast<LPARAM>(&found));
    return found;
}

void serveOpenWindows(Writer& notes, Activity& activity) {
    if (!hasOpenWindow()) return;
    activity.end();
    notes.line(L"pimcall: a window of the driver is open; this program ends when it has been closed.");
    while (hasOpenWindow()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kLongestNapMilliseconds, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

}  // namespace pimcall
