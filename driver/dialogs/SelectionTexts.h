#pragma once

#include <string>
#include <vector>

#include "dialogs/FolderSelection.h"
#include "support/cLocalizedText.h"

namespace zelbar {

/// What the window for the choice of folders says, in the user's language.

/// While Outlook is searched: how many of its folders have been seen.
std::wstring searchingText(cLocalizedText& texts, size_t seen);

/// How many of the folders are checked.
std::wstring countText(cLocalizedText& texts, const std::vector<cfolder*>& found);

/// Why the list is not what the user expects, and what OK would make of it; empty when all is well.
std::wstring hintText(cLocalizedText& texts, const FolderSelection& selection, size_t lines);

}  // namespace zelbar
