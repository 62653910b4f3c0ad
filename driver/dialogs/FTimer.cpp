#include "dialogs/FTimer.h"

#include "automation/Fault.h"
#include "module/OwnModule.h"
#include "support/Lasting.h"

namespace zelbar {

namespace {

constexpr UINT kIntervalOnLoad = 50;

}  // namespace

void FTimer::load() {
    if (window_) return;
    window_ =
        CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, moduleHandle(), nullptr);
    if (!window_) throw faultOf(HRESULT_FROM_WIN32(GetLastError()), L"FTimer");
    interval_ = kIntervalOnLoad;
}

void FTimer::unload() noexcept {
    if (window_) DestroyWindow(window_);
    window_ = nullptr;
}

void FTimer::Interval(UINT milliseconds) {
    load();
    interval_ = milliseconds;
}

FTimer& timerForm() {
    return lasting<FTimer>();
}

}  // namespace zelbar
