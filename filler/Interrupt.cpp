#include "filler/Interrupt.h"

#include <windows.h>

#include <atomic>

namespace filler {
namespace {

// The system calls the handler on a thread of its own and hands it nothing but the reason.
std::atomic<bool> requestedByUser{false};
std::atomic<bool> runHasEnded{false};

BOOL WINAPI onControl(DWORD reason) noexcept {
    const bool isFirst = !requestedByUser.exchange(true);
    if (reason == CTRL_C_EVENT || reason == CTRL_BREAK_EVENT) return isFirst;
    // When the handler returns the program is ended: give the run the time that the system grants.
    constexpr int kPatience = 45;
    constexpr DWORD kStep = 100;
    for (int i = 0; i < kPatience && !runHasEnded; ++i) Sleep(kStep);
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

bool Interrupt::requested() const noexcept {
    return requestedByUser;
}

}  // namespace filler
