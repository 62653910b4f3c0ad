#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// A window that shows one text and stays open beside the client's work. Called on the driver's thread only.
class MessageWindow {
  public:
    virtual ~MessageWindow() = default;
    virtual bool isOpen() const noexcept = 0;
    /// Opens the window. The title "__NO_TITLE__" stands for the driver's own; `option` 0 is a plain message.
    virtual void ShowMessage(const std::wstring& title, int option, const std::wstring& text) = 0;
    /// Brings the open window back to the front.
    virtual void Show() = 0;
};

/// The one way in which the driver speaks to the person at the screen; tests put another in its place.
struct UserDoor {
    /// Shows a message box until it is answered; `flags` as for MessageBox.
    int (*messageBox)(const std::wstring& text, const std::wstring& title,
                      UINT flags) = [](const std::wstring& text, const std::wstring& title, UINT flags) {
        // It has no owner, and yet the client's windows must wait for it, and it must be seen.
        return MessageBoxW(nullptr, text.c_str(), title.c_str(), flags | MB_TASKMODAL | MB_SETFOREGROUND);
    };

    /// Where messages go that the client's work does not wait for. Start-up puts the driver's own window
    /// here, unless there is another one.
    MessageWindow* messageWindow = nullptr;
};

}  // namespace zelbar
