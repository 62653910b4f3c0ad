#pragma once

#include <windows.h>

#include <functional>

#include "automation/CallClock.h"
#include "automation/Com.h"
#include "automation/Deadline.h"
#include "automation/LateReleases.h"
#include "automation/Member.h"

namespace zelbar {

/// How the calls to Outlook wait. Under a deadline a call that is turned away is asked again, one that hangs
/// is cancelled (by Windows, when a message arrives; Wine lets it wait for the server), and nothing is called
/// any more once the deadline has passed. Without a deadline a call waits for ever and is asked once.
class OutgoingCalls {
  public:
    /// Told of an Outlook that has begun not to answer: what was asked of it, and for how many milliseconds.
    using Report = std::function<void(const wchar_t* member, ULONGLONG milliseconds)>;

    /// The clock must outlive this.
    explicit OutgoingCalls(CallClock& clock) : clock_(clock) {}
    /// Releases what still waits, if Outlook does that quickly by now; else it goes with the process.
    ~OutgoingCalls();
    OutgoingCalls(const OutgoingCalls&) = delete;
    OutgoingCalls& operator=(const OutgoingCalls&) = delete;

    void reportTo(Report report) { report_ = std::move(report); }

    /// Makes the call and gives its answer. Throws the not-answering fault for a call that was given up, and
    /// for one that was not made: the deadline has passed, or has passed for another call just now.
    HRESULT carryOut(const wchar_t* member, unsigned manner, const std::function<HRESULT()>& call);

    /// Releases the reference; after a call that has hung it is kept until Outlook answers again.
    void release(Com<IUnknown> reference) noexcept;

  private:
    friend class Deadline;
    friend class Untimed;

    HRESULT once(unsigned manner, const std::function<HRESULT()>& call);
    ULONGLONG end() const;
    bool isSpent() const { return inForce_ && inForce_->isOver(clock_.now()); }
    void admit(const wchar_t* member);
    void overrun(const wchar_t* member, bool wasBusy);
    void answered();
    void pause(DWORD milliseconds);

    CallClock& clock_;
    Report report_;
    Deadline* inForce_ = nullptr;
    LateReleases late_;
    bool silent_ = false;         ///< A deadline has passed, and nothing was answered in time since.
    ULONGLONG refusesUntil_ = 0;  ///< While it is silent nobody waits for it again until then.
    bool hung_ = false;           ///< It was a call that did not come back in time.
    bool pausing_ = false;
};

}  // namespace zelbar
