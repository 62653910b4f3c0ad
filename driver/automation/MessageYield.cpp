#include "automation/MessageYield.h"

#include <windows.h>

namespace zelbar {

void yieldToMessages() noexcept {
    // A timer whose handler takes longer than its period would otherwise keep this loop going for ever.
    constexpr int kMost = 500;
    MSG message;
    for (int i = 0; i < kMost && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        if (message.message == WM_QUIT) {
            // The client's own loop must see it.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace zelbar
