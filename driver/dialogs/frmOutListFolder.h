#pragma once

#include <windows.h>

#include "dialogs/FolderSelection.h"
#include "dialogs/WindowParts.h"

namespace zelbar {

/// Shows Outlook's folders as a tree in which the user checks contacts folders, until he closes it; the owner
/// cannot be used meanwhile. With OK his choice goes into the selection. A folder that he makes is in Outlook
/// at once, and afterwards in the selection's tree, whatever he does next. Throws when the window cannot be
/// made.
void showFolderTree(const WindowParts& parts, HWND owner, FolderSelection& selection);

}  // namespace zelbar
