#include "automation/CallClock.h"

#include "automation/MessageYield.h"

namespace zelbar {

namespace {

class SystemClock final : public CallClock {
  public:
    ULONGLONG now() const noexcept override { return GetTickCount64(); }

    void pause(DWORD milliseconds, bool serving) noexcept override {
        if (!serving) return Sleep(milliseconds);
        const ULONGLONG end = now() + milliseconds;
        for (ULONGLONG time = now(); time < end; time = now()) {
            const DWORD waked = MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - time),
                                                            QS_ALLINPUT, MWMO_INPUTAVAILABLE);
            if (waked != WAIT_OBJECT_0) return;
            yieldToMessages();
            // A message that nobody takes out, such as the request to quit, would wake it for ever.
            if (HIWORD(GetQueueStatus(QS_ALLINPUT)) != 0) Sleep(1);
        }
    }
};

}  // namespace

CallClock& systemClock() {
    static constinit SystemClock clock;
    return clock;
}

}  // namespace zelbar
