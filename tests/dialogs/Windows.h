#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace zelbar {

/// Windows as a user and a client's message loop deal with them.

/// This thread's dialogs that are visible, the topmost first.
std::vector<HWND> openDialogs();
std::wstring windowText(HWND window);

/// A message loop that knows nothing of dialogs, until the condition holds. False when that takes longer than
/// ten seconds.
bool serveUntil(const std::function<bool()>& condition);
void serveMessages();
/// Presses a key in the control that has the keyboard, and serves what comes of it.
void press(WPARAM key);

/// The list view's lines, and their check marks ("1" and "0").
std::vector<std::wstring> linesOf(HWND list);
std::wstring checksOf(HWND list);

/// Presses a button that opens a modal dialog, and does `step` in that one, which must close it. False when
/// none has opened.
bool pressForModal(HWND button, const std::function<void(HWND)>& step);

}  // namespace zelbar
