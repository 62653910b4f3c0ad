#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <optional>
#include <string>

namespace zelbar {

/// A list of lines with check boxes, in a list view of the dialog's template. Several lines can be chosen and
/// checked together. Lines that are wider than the list can be scrolled, and show whole in a tip under the
/// pointer.
class CheckList {
  public:
    /// What the list asks its lines' texts of, by their index from 0, and tells of changed check marks.
    struct Lines {
        std::function<size_t()> count;
        std::function<const std::wstring&(size_t)> text;
        std::function<bool(size_t)> isChecked;
        std::function<void(size_t, bool)> check;
    };

    /// Takes the control of a dialog that has just been made.
    void attach(HWND dialog, int control, Lines lines);

    /// Shows all lines anew and brings the current one into sight.
    void fill(size_t current);

    /// The line that the keyboard is at.
    std::optional<size_t> current() const;

    /// The list's and its tip's notifications to the dialog. True when this was one of them.
    bool notified(NMHDR& header);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept;
    void addTip(HWND dialog);
    void pointerAt(POINT point);
    int lineAt(POINT point) const;
    int boxAt(POINT point) const;
    int focused() const noexcept;
    bool turnChosen(int line) noexcept;
    bool isBoxChecked(int line) const;
    void setBox(int line, bool checked);
    void insert(int line);
    void widen();
    const std::wstring& tipText();

    Lines lines_;
    HWND list_ = nullptr;
    HWND tip_ = nullptr;
    WNDPROC original_ = nullptr;
    int tipLine_ = -1;
    std::wstring tipText_;
    bool filling_ = false;
};

}  // namespace zelbar
