#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace zelbar {

/// Windows as a user and a client's message loop deal with them.

/// This thread's windows of a class, the topmost first.
std::vector<HWND> windowsOfClass(const wchar_t* name);
/// Those dialogs of this thread that are visible.
std::vector<HWND> openDialogs();

std::wstring windowText(HWND window);

/// A message loop that knows nothing of dialogs, until the condition holds. False when that takes longer than
/// ten seconds.
bool serveUntil(const std::function<bool()>& condition);
/// Serves the messages that are waiting.
void serveMessages();

/// Presses a key in the control that has the keyboard, and serves what comes of it.
void press(WPARAM key);
/// Presses Alt and a letter.
void pressAlt(wchar_t letter);

/// The list view's lines, and their check marks ("1" and "0").
std::vector<std::wstring> linesOf(HWND list);
std::wstring checksOf(HWND list);
/// Turns a line's check mark as the user does: by going to the line and pressing Space.
void toggleLine(HWND list, int line);

/// Runs `steps` one after the other in the modal dialog that is about to open.
class ModalSteps {
  public:
    using Step = std::function<void(HWND)>;
    explicit ModalSteps(std::vector<Step> steps);
    ~ModalSteps();
    ModalSteps(const ModalSteps&) = delete;
    ModalSteps& operator=(const ModalSteps&) = delete;

    bool done() const { return steps_.empty(); }

  private:
    void next();

    std::vector<Step> steps_;
    std::vector<HWND> before_;
    UINT_PTR timer_ = 0;
};

/// Presses a button that opens a modal dialog, and does `step` there, which must close it. False when no
/// dialog has opened.
bool pressForModal(HWND button, const ModalSteps::Step& step);

}  // namespace zelbar
