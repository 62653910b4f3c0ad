#include "tests/dialogs/Windows.h"

#include <commctrl.h>

#include <algorithm>

namespace zelbar {

namespace {

constexpr DWORD kPatienceMilliseconds = 10'000;

ModalSteps* running = nullptr;

}  // namespace

std::vector<HWND> windowsOfClass(const wchar_t* name) {
    std::vector<HWND> result;
    EnumThreadWindows(
        GetCurrentThreadId(), [](HWND window, LPARAM found) __stdcall->BOOL {
            reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&result));
    std::erase_if(result, [&](HWND window) {
        wchar_t own[32] = {};
        GetClassNameW(window, own, 32);
        return std::wstring(own) != name;
    });
    return result;
}

std::vector<HWND> openDialogs() {
    auto result = windowsOfClass(L"#32770");
    std::erase_if(result, [](HWND window) { return !IsWindowVisible(window); });
    return result;
}

std::wstring windowText(HWND window) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

void serveMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool serveUntil(const std::function<bool()>& condition) {
    const DWORD start = GetTickCount();
    for (;;) {
        serveMessages();
        if (condition()) return true;
        if (GetTickCount() - start > kPatienceMilliseconds) return false;
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

void press(WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 0);
    PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    serveMessages();
}

void pressAlt(wchar_t letter) {
    constexpr LPARAM kAltIsDown = 1 << 29;
    PostMessageW(GetFocus(), WM_SYSCHAR, letter, kAltIsDown);
    serveMessages();
}

std::vector<std::wstring> linesOf(HWND list) {
    std::vector<std::wstring> result;
    for (int i = 0; i < ListView_GetItemCount(list); ++i) {
        wchar_t text[300] = {};
        ListView_GetItemText(list, i, 0, text, 300);
        result.push_back(text);
    }
    return result;
}

std::wstring checksOf(HWND list) {
    std::wstring result;
    for (int i = 0; i < ListView_GetItemCount(list); ++i)
        result += ListView_GetCheckState(list, i) ? L'1' : L'0';
    return result;
}

void toggleLine(HWND list, int line) {
    SetFocus(list);
    ListView_SetItemState(list, line, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    press(VK_SPACE);
}

ModalSteps::ModalSteps(std::vector<Step> steps) : steps_(std::move(steps)), before_(openDialogs()) {
    running = this;
    timer_ = SetTimer(
        nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) __stdcall->void { running->next(); });
}

ModalSteps::~ModalSteps() {
    KillTimer(nullptr, timer_);
}

void ModalSteps::next() {
    for (const HWND dialog : openDialogs()) {
        if (std::find(before_.begin(), before_.end(), dialog) != before_.end() || steps_.empty()) continue;
        const Step step = steps_.front();
        steps_.erase(steps_.begin());
        step(dialog);
        return;
    }
}

bool pressForModal(HWND button, const ModalSteps::Step& step) {
    ModalSteps steps({step});
    SendMessageW(button, BM_CLICK, 0, 0);
    serveMessages();
    return steps.done();
}

}  // namespace zelbar
