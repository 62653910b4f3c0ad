#include <utility>

#include "export/Export.h"
#include "export/ExportFolder.h"
#include "export/ExportRun.h"

namespace zelbar {

namespace {

/// None when the folder's name is taken.
Object itemsOfFolder(const ExportParts& parts, const std::wstring& folderName) {
    const auto deadline = parts.outlook.timeForUser();
    LookUp folder = GetExportFolder(parts.log, parts.outlook);
    if (folder.failed()) throw folder.fault;
    if (folder.gone()) folder.item = createExportFolder(parts, folderName);
    return folder.item ? folder.item.object(outlook::Items) : Object();
}

}  // namespace

bool initializeExportFolder(const ExportParts& parts, const std::wstring& databasePath,
                            const std::wstring& folderName, Com<IDispatch> client) {
    parts.log.trace(L"In InitializeExportFolder");
    ExportRun run(parts, L"cDataConnector.InitializeExportFolder", std::move(client));
    // A directory that cannot be read must not leave an empty folder behind.
    const std::vector<EmployeeRow> rows = run.readDirectory(databasePath);
    const Object items = itemsOfFolder(parts, folderName);
    if (!items) return false;
    run.begin(L"add", rows.size());
    for (size_t i = 0; i < rows.size(); ++i) {
        run.add(items, rows[i], i + 1);
        run.advance();
    }
    return run.complete();
}

}  // namespace zelbar
