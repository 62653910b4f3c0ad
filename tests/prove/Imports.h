#pragma once

#include <windows.h>

#include <functional>

#include "tests/prove/Departures.h"

namespace prove {

/// Lets what a module calls in Windows and in the C library come by us: it is counted, and fails where a run
/// wants that, for this module alone. Started programs, boxes and pauses are only pretended. Other modules,
/// the stand-ins among them, are not touched.
void watchImports(HMODULE module);

struct Imports {
    /// At a run's event this runs, and then the call fails with that error (a number of Windows, or an
    /// HRESULT), or goes on as if nothing had been.
    std::function<void()> happens;
    bool fails = false;
    DWORD error = 0;

    /// What the module has opened and not closed: handles, keys, fonts and device contexts, hooks.
    long resources = 0;
    /// Another number whenever the module may have changed a setting.
    long writes = 0;
    /// So much is the module's time ahead; it is more whenever the module pauses.
    ULONGLONG passed = 0;
};
inline Imports imports;

}  // namespace prove
