#pragma once

#include <windows.h>

#include "automation/Fault.h"

namespace zelbar {

/// What this module must know after everything else of the driver has gone: whether it may be unloaded.
/// One per module, as written at load, never reset.
struct ModuleState {
    /// Objects alive outside or inside, connection points and windows included.
    long liveObjects = 0;
    /// LockServer calls of class factories.
    long locks = 0;
    /// Where members report what they trapped; nowhere until the driver has a log.
    void (*traceTrapped)(const wchar_t* prefix, const Fault& fault) noexcept = traceNowhere;

    static void traceNowhere(const wchar_t*, const Fault&) noexcept {}
};

ModuleState& moduleState();

/// Keeps the module loaded while it lives.
class LiveObject {
  public:
    LiveObject() { InterlockedIncrement(&moduleState().liveObjects); }
    LiveObject(const LiveObject&) : LiveObject() {}
    LiveObject& operator=(const LiveObject&) { return *this; }
    ~LiveObject() { InterlockedDecrement(&moduleState().liveObjects); }
};

}  // namespace zelbar
