#include "connector/FolderConfiguration.h"

#include <string>

#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "support/Settings.h"

namespace zelbar {

namespace {

/// Throws when a folder is stored that Outlook does not open.
void openStoredFolder(OutlookConnection& connection) {
    const std::wstring entryId = getSetting(settings::kEntryId, 1);
    const std::wstring storeId = getSetting(settings::kStoreId, 1);
    if (!entryId.empty() && !storeId.empty())
        connection.GetNameSpace().object(outlook::GetFolderFromID, entryId, storeId);
}

}  // namespace

bool isFolderConfigured(FLog& log, OutlookConnection& connection, const ContactCache& cache) noexcept {
    try {
        openStoredFolder(connection);
        const bool configured = cache.fileExists();
        log.trace(L"isFolderConfigured() :", configured);
        return configured;
    } catch (...) {
        log.fault(L"(Error)isFolderConfigured():", caughtFault());
        return false;
    }
}

}  // namespace zelbar
