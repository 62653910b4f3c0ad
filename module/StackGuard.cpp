// What the compiler's guard of the stack wants at run time. Its own library draws the guard's value from the
// system's key provider, and so would load further libraries while ours is being loaded: under the loader's
// lock, in somebody else's process, ten times as long as the loading takes otherwise.

#include <windows.h>

#include <cstdint>

// The compiler's names.  NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

std::uintptr_t __stack_chk_guard = 0x00ff0a0d;

/// A frame was overwritten, so that nothing may be trusted any more, handlers of exceptions least of all.
[[noreturn]] void __stack_chk_fail() {
    EXCEPTION_RECORD what{};
    what.ExceptionCode = static_cast<DWORD>(STATUS_STACK_BUFFER_OVERRUN);
    what.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
    what.ExceptionAddress = __builtin_return_address(0);
    RaiseFailFastException(&what, nullptr, 0);
    TerminateProcess(GetCurrentProcess(), what.ExceptionCode);
    __builtin_unreachable();
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier)

namespace {

/// Another value in every process, of all that differs there. The byte 0 stays: no text can be written over
/// it.
__attribute__((constructor(101), no_stack_protector)) void chooseGuard() {
    FILETIME time;
    GetSystemTimeAsFileTime(&time);
    LARGE_INTEGER counter;
    QueryPerformanceCounter(&counter);
    std::uintptr_t value = time.dwLowDateTime ^ time.dwHighDateTime ^ counter.LowPart;
    value ^= GetCurrentProcessId() * 0x9e3779b1u ^ GetCurrentThreadId() * 0x85ebca6bu;
    value ^= reinterpret_cast<std::uintptr_t>(&time);
    value ^= value >> 15;
    value *= 0x2c1b3c6du;
    __stack_chk_guard = (value ^ value >> 12) & ~std::uintptr_t{0xff};
}

}  // namespace
