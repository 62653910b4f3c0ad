#include "dialogs/CheckList.h"

#include <windowsx.h>

#include <utility>

#include "module/OwnModule.h"

namespace zelbar {

namespace {

/// A check mark is a picture that stands for the state: 1 empty, 2 checked.
constexpr UINT kCheckedImage = 2;

constexpr UINT imageState(bool checked) {
    return INDEXTOSTATEIMAGEMASK(checked ? kCheckedImage : 1);
}

template <class Parameter = LPARAM>
LRESULT ask(HWND window, UINT message, WPARAM wide = 0, Parameter parameter = {}) {
    if constexpr (std::is_pointer_v<Parameter>)
        return SendMessageW(window, message, wide, reinterpret_cast<LPARAM>(parameter));
    else
        return SendMessageW(window, message, wide, static_cast<LPARAM>(parameter));
}

TTTOOLINFOW toolOf(HWND dialog, HWND list) {
    TTTOOLINFOW tool{};
    // The size before the last field was added: older versions refuse any other.
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(list);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    return tool;
}

}  // namespace

void CheckList::attach(HWND dialog, int control, Lines lines) {
    lines_ = std::move(lines);
    list_ = GetDlgItem(dialog, control);
    constexpr DWORD kStyle = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    ask(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, kStyle, kStyle);
    LVCOLUMNW column{};
    ask(list_, LVM_INSERTCOLUMNW, 0, &column);
    SetWindowLongPtrW(list_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    original_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
    addTip(dialog);
}

void CheckList::addTip(HWND dialog) {
    tip_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                           CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, dialog, nullptr,
                           moduleHandle(), nullptr);
    const TTTOOLINFOW tool = toolOf(dialog, list_);
    ask(tip_, TTM_ADDTOOLW, 0, &tool);
    ask(tip_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
}

void CheckList::fill() {
    const bool before = std::exchange(filling_, true);
    ask(list_, WM_SETREDRAW, FALSE);
    ask(list_, LVM_DELETEALLITEMS);
    const size_t count = lines_.count();
    ask(list_, LVM_SETITEMCOUNT, count);
    for (size_t i = 0; i < count; ++i) {
        std::wstring text = lines_.text(i);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = static_cast<int>(i);
        item.pszText = text.data();
        ask(list_, LVM_INSERTITEMW, 0, &item);
        item.stateMask = LVIS_STATEIMAGEMASK;
        item.state = imageState(lines_.isChecked(i));
        ask(list_, LVM_SETITEMSTATE, i, &item);
    }
    widen();
    ask(list_, WM_SETREDRAW, TRUE);
    InvalidateRect(list_, nullptr, TRUE);
    filling_ = before;
}

void CheckList::widen() {
    constexpr int kBehindTheWidest = 20;
    ask(list_, LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE);
    const auto widest = static_cast<int>(ask(list_, LVM_GETCOLUMNWIDTH));
    ask(list_, LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(widest + kBehindTheWidest, 0));
}

bool CheckList::notified(NMHDR& header) {
    if (header.hwndFrom == list_ && header.code == LVN_ITEMCHANGED) {
        const auto& change = reinterpret_cast<NMLISTVIEW&>(header);
        const bool isCheck = (change.uNewState ^ change.uOldState) & LVIS_STATEIMAGEMASK;
        if (!filling_ && isCheck && change.iItem >= 0)
            lines_.check(static_cast<size_t>(change.iItem),
                         (change.uNewState & LVIS_STATEIMAGEMASK) == imageState(true));
        return true;
    }
    if (header.hwndFrom == tip_ && header.code == TTN_GETDISPINFOW) {
        auto& question = reinterpret_cast<NMTTDISPINFOW&>(header);
        POINT point{};
        GetCursorPos(&point);
        ScreenToClient(list_, &point);
        const int line = tipLine_ >= 0 ? tipLine_ : lineAt(point);
        // The tip only reads the text, which stays where it is as long as the line does.
        question.lpszText = line >= 0 && static_cast<size_t>(line) < lines_.count()
                                ? const_cast<wchar_t*>(lines_.text(static_cast<size_t>(line)).c_str())
                                : nullptr;
        return true;
    }
    return false;
}

int CheckList::lineAt(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    return static_cast<int>(ask(list_, LVM_SUBITEMHITTEST, 0, &hit));
}

void CheckList::pointerAt(POINT point) {
    const int line = lineAt(point);
    if (line == tipLine_) return;
    tipLine_ = line;
    ask(tip_, TTM_POP);
}

LRESULT CALLBACK CheckList::procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) noexcept {
    auto& self = *reinterpret_cast<CheckList*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const WNDPROC original = self.original_;
    switch (message) {
        case WM_MOUSEMOVE:
            self.pointerAt({GET_X_LPARAM(parameter), GET_Y_LPARAM(parameter)});
            break;
        case WM_NCMOUSEMOVE:
            self.pointerAt({-1, -1});
            break;
        case WM_NCDESTROY:
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
            break;
        default:
            break;
    }
    return CallWindowProcW(original, window, message, wide, parameter);
}

}  // namespace zelbar
