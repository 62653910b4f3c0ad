#pragma once

#include <windows.h>

#include "support/Handle.h"

namespace zelbar {

/// While it lives, a modeless dialog has its keys (Tab, Enter, Escape, the underlined letters) in a client
/// whose message loop knows nothing of dialogs. Made and destroyed on the dialog's thread.
class DialogKeys {
  public:
    explicit DialogKeys(HWND dialog);
    ~DialogKeys();
    DialogKeys(const DialogKeys&) = delete;
    DialogKeys& operator=(const DialogKeys&) = delete;

  private:
    struct HookTraits {
        using Type = HHOOK;
        static Type empty() noexcept { return nullptr; }
        static void close(Type hook) noexcept { UnhookWindowsHookEx(hook); }
    };

    static LRESULT CALLBACK serveKeys(int code, WPARAM removal, LPARAM parameter) noexcept;
    static bool serve(MSG& message) noexcept;

    HWND dialog_;
    Handle<HookTraits> hook_;
};

}  // namespace zelbar
