#pragma once

#include <windows.h>

#include <functional>

namespace pimcall {

/// Does work that may never come back, on a thread and in a single-threaded apartment of its own. False when
/// it has not ended within the time: it then goes on until the program ends, so it must hold what it uses
/// itself, and its caller must not look at that. Calls that come in for this thread's objects are served
/// meanwhile.
bool endsWithin(DWORD milliseconds, std::function<void()> work);

}  // namespace pimcall
