#pragma once

#include "support/FLog.h"

namespace zelbar {

/// The window that shows the trace log. It copies its lines to the clipboard (Ctrl+C or its menu), and keeps
/// the newest ones only, since a day's trace would fill the client's memory. Closing it ends the showing. The
/// module stays loaded while it is open.
LogWindow& logWindow();

/// How many lines are kept.
inline constexpr int kMostLogLines = 5000;

}  // namespace zelbar
