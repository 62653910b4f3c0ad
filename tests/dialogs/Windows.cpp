#include "tests/dialogs/Windows.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace zelbar {

namespace {

constexpr DWORD kPatienceMilliseconds = 10'000;

std::function<void(HWND)> modalStep;
std::vector<HWND> openBefore;

void CALLBACK doModalStep(HWND, UINT, UINT_PTR, DWORD) {
    for (const HWND dialog : openDialogs())
        if (modalStep && std::find(openBefore.begin(), openBefore.end(), dialog) == openBefore.end())
            return std::exchange(modalStep, nullptr)(dialog);
}

}  // namespace

std::vector<HWND> openDialogs() {
    std::vector<HWND> result;
    EnumThreadWindows(
        GetCurrentThreadId(), [](HWND window, LPARAM found) __stdcall->BOOL {
            wchar_t name[32] = {};
            GetClassNameW(window, name, 32);
            if (IsWindowVisible(window) && std::wstring(name) == L"#32770")
                reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&result));
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

bool pressForModal(HWND button, const std::function<void(HWND)>& step) {
    openBefore = openDialogs();
    modalStep = step;
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, doModalStep);
    SendMessageW(button, BM_CLICK, 0, 0);
    serveMessages();
    KillTimer(nullptr, timer);
    return !std::exchange(modalStep, nullptr);
}

}  // namespace zelbar
