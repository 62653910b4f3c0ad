#pragma once

#include <string>

#include "automation/Com.h"
#include "export/ExportParts.h"

namespace zelbar {

/// What the client asks for. True when all of it has been done; false when a row failed, something was left
/// for the next run, or the folder's name is taken; the log tells which. What prevents the run as a whole is
/// thrown. An empty database path stands for the database that is open, `client` is who is told how far the
/// run is, or none.

/// Copies every row of the directory into the export folder, which is made if there is none. The folder's
/// contacts stay as they are: doing it again for the same folder makes every contact a second time.
bool initializeExportFolder(const ExportParts& parts, const std::wstring& databasePath,
                            const std::wstring& folderName, Com<IDispatch> client);

/// Makes the export folder the image of the directory: adds, changes and removes what differs, and nothing
/// else. A folder that is gone is made anew if a name is given.
bool synchronizeExportFolder(const ExportParts& parts, const std::wstring& databasePath,
                             const std::wstring& folderName, Com<IDispatch> client);

}  // namespace zelbar
