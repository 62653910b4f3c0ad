#pragma once

#include <windows.h>

namespace zelbar {

/// A hidden form with one timer, which is never enabled: searches answer within the client's call.
class FTimer {
  public:
    FTimer() = default;
    ~FTimer() { unload(); }
    FTimer(const FTimer&) = delete;
    FTimer& operator=(const FTimer&) = delete;

    /// Loads the form if it is not there, with an interval of 50 ms.
    void load();
    void unload() noexcept;

    UINT Interval() const { return interval_; }
    /// Milliseconds until a tick. Loads the form.
    void Interval(UINT milliseconds);

  private:
    HWND window_ = nullptr;
    UINT interval_ = 0;
};

/// The driver's timer form. Unloaded by the driver's shut-down.
FTimer& timerForm();

}  // namespace zelbar
