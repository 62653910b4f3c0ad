#pragma once

#include <string>

#include "core/OutlookConnection.h"
#include "dialogs/FolderTree.h"
#include "support/FLog.h"

namespace zelbar {

/// Makes a contacts folder below another one of the tree in Outlook. Throws when there is none afterwards:
/// what cannot be selected, because it does not tell who it is, is taken back. If Outlook refuses that as
/// well, the folder stays and the record has no `EntryId`.
cfolder makeContactsFolder(OutlookConnection& outlook, FLog& log, const FolderTree& tree, size_t parent,
                           const std::wstring& name);

}  // namespace zelbar
