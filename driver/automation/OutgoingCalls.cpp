#include "automation/OutgoingCalls.h"

#include <algorithm>
#include <string>
#include <utility>

#include "automation/CallFilter.h"
#include "automation/OutlookFaults.h"

namespace zelbar {

namespace {

/// What is asked of an Outlook that did not answer fails at once for so long.
constexpr ULONGLONG kRefusal = 5000;

constexpr DWORD kFirstPause = 50;
constexpr DWORD kLongestPause = 400;

bool isBusy(HRESULT answer) {
    return answer == RPC_E_CALL_REJECTED || answer == RPC_E_SERVERCALL_RETRYLATER;
}

Fault notAnswering(const wchar_t* member, bool isUnknown) {
    std::wstring text = L"Outlook did not answer in time";
    if (isUnknown) text += std::wstring(L"; whether it has carried out ") + member + L" is not known";
    return {kNotAnswering, std::move(text), L"Microsoft Outlook"};
}

/// When a call that was turned away is tried again.
DWORD retryWithin(ULONGLONG now, ULONGLONG end) {
    // COM takes less for "at once".
    constexpr ULONGLONG kLeast = 100, kPause = 200;
    return now >= end ? CallRules::kGiveUp : static_cast<DWORD>(std::clamp(end - now, kLeast, kPause));
}

}  // namespace

OutgoingCalls::~OutgoingCalls() {
    const ULONGLONG now = clock_.now();
    if (silent_ && now < refusesUntil_) return;
    try {
        constexpr ULONGLONG kPatience = 1000;
        const ULONGLONG end = now + kPatience;
        const CallFilter filter(
            {[&](DWORD) { return retryWithin(clock_.now(), end); }, [&] { return clock_.now() >= end; }});
        late_.release([&] { return clock_.now() < end; });
    } catch (...) {
        // Without memory for it, what waits goes with the process.
    }
}

ULONGLONG OutgoingCalls::end() const {
    return inForce_ ? inForce_->end() : Deadline::kNever;
}

HRESULT OutgoingCalls::carryOut(const wchar_t* member, unsigned manner,
                                const std::function<HRESULT()>& call) {
    for (DWORD milliseconds = kFirstPause;; milliseconds = std::min(milliseconds * 2, kLongestPause)) {
        admit(member);
        const HRESULT answer = once(manner, call);
        const bool cancelled = answer == RPC_E_CALL_CANCELED;
        if (isSpent())
            overrun(member, isBusy(answer));
        else if (!isBusy(answer) && !cancelled)
            answered();
        if (cancelled) throw notAnswering(member, manner & kLasting);
        if (!isBusy(answer) || (manner & kLasting) || isSpent() || end() == Deadline::kNever) return answer;
        pause(milliseconds);
        if (!isSpent()) continue;
        overrun(member, true);
        return answer;
    }
}

HRESULT OutgoingCalls::once(unsigned manner, const std::function<HRESULT()>& call) {
    if (!inForce_) return call();
    if (manner & kAsksUser) {
        const Untimed untimed(*this);
        return call();
    }
    Deadline& deadline = *inForce_;
    const CallFilter filter({[&deadline, this](DWORD) { return retryWithin(clock_.now(), deadline.end()); },
                             [&deadline, this] { return deadline.isOver(clock_.now()); },
                             [&deadline] { return deadline.end() != Deadline::kNever; }});
    return call();
}

void OutgoingCalls::admit(const wchar_t* member) {
    if (isSpent()) overrun(member, false);
    const bool refuses = silent_ && clock_.now() < refusesUntil_ && end() != Deadline::kNever;
    if (refuses) throw notAnswering(member, false);
}

void OutgoingCalls::overrun(const wchar_t* member, bool wasBusy) {
    const ULONGLONG now = clock_.now();
    if (silent_ && now < refusesUntil_) return;
    silent_ = true;
    // A busy Outlook turns calls away, but not the release of a reference.
    hung_ = hung_ || !wasBusy;
    refusesUntil_ = now + kRefusal;
    if (report_) report_(member, now - inForce_->begun());
}

void OutgoingCalls::answered() {
    if (!silent_) return;
    silent_ = hung_ = false;
    late_.release([this] { return !hung_ && !isSpent(); });
}

/// A call of the client's own that comes in meanwhile waits without serving messages, else a timer of his
/// could call into the driver ever deeper. It has a deadline of its own; the pause's goes on.
void OutgoingCalls::pause(DWORD milliseconds) {
    const ULONGLONG now = clock_.now();
    const auto longest = static_cast<DWORD>(std::min<ULONGLONG>(milliseconds, end() - now));
    Deadline* const waiting = std::exchange(inForce_, nullptr);
    const bool serving = !std::exchange(pausing_, true);
    clock_.pause(longest, serving);
    pausing_ = !serving;
    inForce_ = waiting;
}

void OutgoingCalls::release(Com<IUnknown> reference) noexcept {
    if (hung_) return late_.keep(std::move(reference));
    try {
        once(kPlain, [&reference] {
            reference.reset();
            return S_OK;
        });
    } catch (...) {
        // There was no memory for the filter: it goes without one.
    }
}

}  // namespace zelbar
