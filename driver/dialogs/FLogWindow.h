#pragma once

#include "dialogs/WindowParts.h"

namespace zelbar {

/// The window that shows the trace log. It copies its lines to the clipboard (Ctrl+C or its menu), and keeps
/// the newest ones only, since a day's trace would fill the client's memory. Closing it ends the showing. The
/// module stays loaded while it is open. There is one, which uses the parts that it was asked for with last.
LogWindow& logWindow(const WindowParts& parts);

/// How many lines are kept.
inline constexpr int kMostLogLines = 5000;

}  // namespace zelbar
