#pragma once

#include <windows.h>

#include <functional>

#include "tests/prove/Departures.h"

namespace prove {

/// Lets what a module calls in Windows and in the C library come by us: it is counted, and fails where a run
/// wants that, for this module alone. Started programs, boxes and pauses are only pretended. Other modules,
/// the stand-ins among them, are not touched.
void watchImports(HMODULE module);

/// What a watched call meets when a run's event happens at it: `event` runs, and then it fails with that
/// error (a number of Windows, or an HRESULT), or goes on as if nothing had been.
void setImportEvent(std::function<void()> event, bool fails, DWORD error);

/// The module's time goes on by so much; it does so by itself when the module pauses.
void passTime(ULONGLONG milliseconds);

/// What the module has opened and not closed: handles, keys, fonts and device contexts, hooks.
long openResources();

/// Another number whenever the module may have changed a setting.
long registryWrites();

}  // namespace prove
