#pragma once

#include "client/Activity.h"
#include "client/Writer.h"

namespace pimcall {

/// Whether the driver has opened a window in this program: they belong to the thread that called it.
bool hasOpenWindow();

/// Serves the windows that the driver has opened until the user has closed the last of them, and tells a
/// user who may not see them that they wait.
void serveOpenWindows(Writer& notes, Activity& activity);

}  // namespace pimcall
