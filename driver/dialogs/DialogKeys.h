#pragma once

#include <windows.h>

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
    HWND dialog_;
};

}  // namespace zelbar
