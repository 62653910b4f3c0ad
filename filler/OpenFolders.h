#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "automation/Gateway.h"
#include "automation/Object.h"
#include "filler/FolderChoice.h"
#include "filler/Observer.h"

namespace filler {

/// An opened folder and the items that it had then.
struct OpenFolder {
    zelbar::Object folder;
    zelbar::Object items;
    std::size_t store;  ///< Position of its store among the stores.
    long count;
};

/// Outlook with the folders to read. It keeps running for as long as this lives.
struct OpenFolders {
    zelbar::Object application;
    zelbar::Object session;
    std::vector<OpenFolder> folders;
    std::vector<std::wstring> storeIds;
};

/// Opens the chosen folders, or the default contacts folder. An Outlook that is just leaving or starting is
/// tried again for some seconds. Throws a Fault when Outlook cannot be reached, a Failure for a folder.
OpenFolders openFolders(zelbar::Gateway& gateway, const FolderChoice& choice, Observer& observer);

/// The path of a folder as Outlook's tree shows it: "\Store\Folder"; for sentences, so it never throws.
std::wstring pathOf(const zelbar::Object& folder);

}  // namespace filler
