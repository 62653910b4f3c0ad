#pragma once

#include <windows.h>

#include <functional>

#include "automation/Fault.h"

namespace zelbar {

/// A hidden form with one timer. A tick comes through the client's message loop, and is the only one: the
/// timer is disabled before the tick is served.
class FTimer {
  public:
    FTimer() = default;
    ~FTimer() { unload(); }
    FTimer(const FTimer&) = delete;
    FTimer& operator=(const FTimer&) = delete;

    /// Loads the form if it is not there, with an interval of 50 ms and the timer disabled.
    void load();
    void unload() noexcept;
    bool isLoaded() const { return window_ != nullptr; }

    bool Enabled() const { return enabled_; }
    /// Whether a tick is to come; loads the form.
    void Enabled(bool enabled);
    UINT Interval() const { return interval_; }
    /// Milliseconds until the tick; a timer that is enabled starts anew. Loads the form.
    void Interval(UINT milliseconds);

    /// In mode 1 a tick goes on with the search that is registered here.
    int Mode = 0;
    std::function<void()> TimerFind;
    /// Is told when that fails.
    std::function<void(const Fault&)> Failed;

  private:
    static void CALLBACK tick(HWND window, UINT message, UINT_PTR id, DWORD time) noexcept;
    void start();

    HWND window_ = nullptr;
    UINT interval_ = 0;
    bool enabled_ = false;
};

/// The driver's timer form. Unloaded by the driver's shut-down.
FTimer& timerForm();

}  // namespace zelbar
