#pragma once

#include <windows.h>

#include <initializer_list>
#include <memory>
#include <optional>

#include "automation/Fault.h"
#include "com/ModuleState.h"
#include "dialogs/Anchors.h"
#include "dialogs/DialogFont.h"
#include "dialogs/DialogKeys.h"
#include "dialogs/WindowParts.h"

namespace zelbar {

/// What stands behind a dialog window. The window owns it: it lives as long as the window, and as long as one
/// of its procedures is running (what is asked of Outlook there may take the window away). The module stays
/// loaded meanwhile. When the process ends with a window open, nothing of it is touched any more.
class Form {
  public:
    virtual ~Form() = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    /// None once the window has been destroyed.
    HWND window() const noexcept { return window_; }

  protected:
    /// `name` stands in the log with what goes wrong.
    Form(const wchar_t* name, const WindowParts& parts) : parts_(parts), name_(name) {}

    /// Makes the window of a dialog template, not yet visible. Throws when it cannot be made.
    static void open(const std::shared_ptr<Form>& form, int dialogTemplate);
    /// Runs what makes an open window complete. One that fails in it goes: nobody could use or close it.
    template <class Work>
    static void complete(const std::shared_ptr<Form>& form, Work&& work) {
        try {
            work();
        } catch (...) {
            const Fault fault = caughtFault();
            DestroyWindow(form->window());
            throw fault;
        }
    }
    /// Shows the window of a template until it ends itself; the owner cannot be used meanwhile.
    static void run(const std::shared_ptr<Form>& form, int dialogTemplate, HWND owner);

    /// Answers a message as a dialog procedure does.
    virtual INT_PTR handle(UINT message, WPARAM wide, LPARAM parameter) = 0;

    HWND control(int id) const { return GetDlgItem(window_, id); }
    void focus(int id) const {
        SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(id)), TRUE);
    }
    void makeDefault(int id) const { SendMessageW(window_, DM_SETDEFID, static_cast<WPARAM>(id), 0); }

    /// A control, or the window itself (0), and its numbered text.
    struct Text {
        int control;
        const wchar_t* text;
    };
    /// Gives the window its texts and their character set, and lets the controls follow its size.
    void dress(std::initializer_list<Text> texts, std::initializer_list<Anchors::Anchor> anchors);
    /// Gives a modeless window its keys.
    void takeKeys() { keys_.emplace(window_); }

    const WindowParts parts_;
    Font font_;

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    INT_PTR serve(UINT message, WPARAM wide, LPARAM parameter);

    const wchar_t* name_;
    HWND window_ = nullptr;
    std::shared_ptr<Form> self_;  // while the window exists
    std::optional<DialogKeys> keys_;
    Anchors anchors_;
    LiveObject live_;
};

}  // namespace zelbar
