#include "dialogs/CheckList.h"

#include <uxtheme.h>
#include <windowsx.h>

#include <utility>

#include "dialogs/FolderRules.h"
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
    SetWindowTheme(list_, L"Explorer", nullptr);
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
    // Lines are broken where we say; there is no other way to have more than one.
    ask(tip_, TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN));
}

void CheckList::fill(size_t current) {
    const bool before = std::exchange(filling_, true);
    ask(list_, WM_SETREDRAW, FALSE);
    ask(list_, LVM_DELETEALLITEMS);
    const size_t count = lines_.count();
    ask(list_, LVM_SETITEMCOUNT, count);
    for (size_t i = 0; i < count; ++i) insert(static_cast<int>(i));
    widen();
    LVITEMW chosen{};
    chosen.state = chosen.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
    ask(list_, LVM_SETITEMSTATE, current, &chosen);
    ask(list_, LVM_SETSELECTIONMARK, 0, current);
    ask(list_, WM_SETREDRAW, TRUE);
    ask(list_, LVM_ENSUREVISIBLE, current, FALSE);
    InvalidateRect(list_, nullptr, TRUE);
    filling_ = before;
}

void CheckList::insert(int line) {
    std::wstring text = shownPath(lines_.text(static_cast<size_t>(line)));
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = line;
    item.pszText = text.data();
    ask(list_, LVM_INSERTITEMW, 0, &item);
    setBox(line, lines_.isChecked(static_cast<size_t>(line)));
}

int CheckList::focused() const noexcept {
    return static_cast<int>(ask(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

std::optional<size_t> CheckList::current() const {
    const int line = focused();
    return line < 0 ? std::nullopt : std::optional(static_cast<size_t>(line));
}

bool CheckList::isBoxChecked(int line) const {
    return static_cast<UINT>(ask(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(line), LVIS_STATEIMAGEMASK)) ==
           imageState(true);
}

void CheckList::setBox(int line, bool checked) {
    LVITEMW item{};
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = imageState(checked);
    ask(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(line), &item);
}

/// When a line is one of several that are chosen, all of them get the mark that it does not have. Otherwise
/// the control itself turns the one.
bool CheckList::turnChosen(int line) noexcept {
    const bool chosen = ask(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(line), LVIS_SELECTED) != 0;
    if (line < 0 || !chosen || ask(list_, LVM_GETSELECTEDCOUNT) < 2) return false;
    const bool checked = !isBoxChecked(line);
    int each = -1;
    while ((each = static_cast<int>(ask(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(each), LVNI_SELECTED))) >=
           0)
        setBox(each, checked);
    return true;
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
        // The tip only reads the text.
        question.lpszText = const_cast<wchar_t*>(tipText().c_str());
        return true;
    }
    return false;
}

const std::wstring& CheckList::tipText() {
    const auto line = static_cast<size_t>(tipLine_);
    return tipText_ = line < lines_.count() ? brokenPath(lines_.text(line)) : std::wstring();
}

int CheckList::lineAt(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    return static_cast<int>(ask(list_, LVM_SUBITEMHITTEST, 0, &hit));
}

/// The line whose box is there; below 0 for none.
int CheckList::boxAt(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    const auto line = static_cast<int>(ask(list_, LVM_SUBITEMHITTEST, 0, &hit));
    return hit.flags & LVHT_ONITEMSTATEICON && !(hit.flags & LVHT_ONITEMLABEL) ? line : -1;
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
        case WM_KEYDOWN:
            if (wide == VK_SPACE && self.turnChosen(self.focused())) return 0;
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            if (self.turnChosen(self.boxAt({GET_X_LPARAM(parameter), GET_Y_LPARAM(parameter)}))) return 0;
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
