#include "filler/Interrupt.h"

#include <windows.h>

#include <atomic>

namespace filler {
namespace {

// The system calls the handler on a thread of its own and hands it nothing but the reason.
std::atomic<bool> requestedByUser{false};
std::atomic<bool> runHasEnded{false};

/// Whether the program may be ended in the middle of the run. Whoever comes first decides.
enum class Phase { Reads, Changes, IsCutShort };
std::atomic<Phase> phase{Phase::Reads};

bool moveOn(Phase next) {
    Phase expected = Phase::Reads;
    return phase.compare_exchange_strong(expected, next);
}

void waitForRun(int milliseconds) {
    constexpr int kStep = 20;
    for (int waited = 0; waited < milliseconds && !runHasEnded; waited += kStep) Sleep(kStep);
}

void cutShort() {
    constexpr char kSentence[] = "fillcache: The run was interrupted. The cache stays as it was.\n";
    constexpr UINT kFailure = 3;
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), kSentence, sizeof(kSentence) - 1, &written, nullptr);
    // Not ExitProcess: the main thread waits for Outlook, and may hold what that needs.
    TerminateProcess(GetCurrentProcess(), kFailure);
}

BOOL WINAPI onControl(DWORD reason) noexcept {
    const bool isFirst = !requestedByUser.exchange(true);
    if (reason == CTRL_C_EVENT || reason == CTRL_BREAK_EVENT) {
        if (!isFirst) return FALSE;
        waitForRun(700);
        if (!runHasEnded && moveOn(Phase::IsCutShort)) cutShort();
        return TRUE;
    }
    // When the handler returns the program is ended: give the run the time that the system grants.
    waitForRun(4500);
    return TRUE;
}

}  // namespace

Interrupt::Interrupt() {
    SetConsoleCtrlHandler(onControl, TRUE);
}

Interrupt::~Interrupt() {
    runHasEnded = true;
    SetConsoleCtrlHandler(onControl, FALSE);
}

void Interrupt::changesBegin() noexcept {
    if (!moveOn(Phase::Changes)) Sleep(INFINITE);
}

bool Interrupt::requested() const noexcept {
    return requestedByUser;
}

}  // namespace filler
