#pragma once

#include <string>

#include "client/Driver.h"

namespace pimcall {

/// Looks in Outlook for the folder that an export is to go to, before the driver does: where the driver would
/// ask a person, or work in vain, this throws a `Failure` that says what is the matter and what to do. `name`
/// is for a folder that has to be made; it may be empty.
void requireExportFolder(ExportStep step, const std::wstring& name);

/// Remembers a folder that another computer has made as the export folder: a contacts folder's name, or its
/// path ("\Store\Folder"). Returns the path. Throws `Failure` when there is no such folder, or more than one,
/// or no export has made what is in it.
std::wstring adoptExportFolder(const std::wstring& name);

}  // namespace pimcall
