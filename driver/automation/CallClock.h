#pragma once

#include <windows.h>

namespace zelbar {

/// Time, as those see it who wait for Outlook; tests have a clock of their own.
class CallClock {
  public:
    /// Milliseconds since some moment; never goes back.
    virtual ULONGLONG now() const noexcept = 0;

    /// Lets the time pass; with `serving` the thread's messages run meanwhile.
    virtual void pause(DWORD milliseconds, bool serving) noexcept = 0;

  protected:
    // Nobody owns one through this class, and the real one lasts until the process ends.
    ~CallClock() = default;
};

/// The real one.
CallClock& systemClock();

}  // namespace zelbar
