#pragma once

#include "dialogs/WindowParts.h"

namespace zelbar {

/// Opens the window in which the user chooses the contacts folders, or brings the open one to the front. It
/// has no owner and does not wait for the user; what he saves goes to his settings. The search for the
/// folders goes on in the client's message loop when it takes long. The module stays loaded while the window
/// is open.
void showFolderSelection(const WindowParts& parts);

}  // namespace zelbar
