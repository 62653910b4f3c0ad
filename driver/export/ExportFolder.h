#pragma once

#include <string>

#include "automation/Object.h"
#include "core/LookUp.h"
#include "export/ExportParts.h"

namespace zelbar {

/// Outlook's folder of exported employees, as the registry remembers it. `item` of the answer is the folder.
/// Only "gone" (nothing remembered, or Outlook says that no store has it) may lead to a new folder.
LookUp GetExportFolder(FLog& log, OutlookConnection& outlook);

/// Makes the folder beside the default contacts folder and remembers it. An empty name stands for the
/// client's setting, and without one for the text "Employees". None when the name is taken, which the user
/// has been told. Throws what Outlook raises otherwise.
Object createExportFolder(const ExportParts& parts, const std::wstring& name);

/// Remembers the folder for the next runs. Throws what Outlook raises.
void storeExportFolder(const Object& folder);

}  // namespace zelbar
