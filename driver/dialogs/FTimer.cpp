#include "dialogs/FTimer.h"

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
    enabled_ = false;
}

void FTimer::unload() noexcept {
    if (window_) DestroyWindow(window_);
    window_ = nullptr;
    enabled_ = false;
}

void FTimer::Enabled(bool enabled) {
    load();
    enabled_ = enabled;
    start();
}

void FTimer::Interval(UINT milliseconds) {
    load();
    interval_ = milliseconds;
    start();
}

void FTimer::start() {
    const auto id = reinterpret_cast<UINT_PTR>(this);
    if (enabled_ && interval_ > 0)
        SetTimer(window_, id, interval_, tick);
    else
        KillTimer(window_, id);
}

void CALLBACK FTimer::tick(HWND window, UINT, UINT_PTR id, DWORD) noexcept {
    auto& form = *reinterpret_cast<FTimer*>(id);
    // One that was under way when the timer was disabled.
    if (form.window_ != window || !form.enabled_) return;
    try {
        form.Enabled(false);
        // The search may register another one while it goes on.
        const auto find = form.TimerFind;
        if (form.Mode == 1 && find) find();
    } catch (...) {
        if (form.Failed) form.Failed(caughtFault());
    }
}

FTimer& timerForm() {
    return lasting<FTimer>();
}

}  // namespace zelbar
