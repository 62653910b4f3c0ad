#include "connector/cDataConnector.h"
#include "export/Export.h"

namespace zelbar {

bool cDataConnector::DataConnector_InitializeExportFolder(const std::wstring& databasePath,
                                                          const std::wstring& folderName,
                                                          const Com<IDispatch>& progress) {
    return initializeExportFolder(databasePath, folderName, progress);
}

bool cDataConnector::DataConnector_SynchronizeExportFolder(const std::wstring& databasePath,
                                                           const std::wstring& folderName,
                                                           const Com<IDispatch>& progress) {
    return synchronizeExportFolder(databasePath, folderName, progress);
}

}  // namespace zelbar
