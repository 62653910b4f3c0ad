#include "connector/FolderConfiguration.h"

#include <string>

#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "core/DriverState.h"
#include "support/Settings.h"

namespace zelbar {

namespace {

/// Throws when a folder is stored that Outlook does not open.
void openStoredFolder() {
    const std::wstring entryId = getSetting(settings::kEntryId, 1);
    const std::wstring storeId = getSetting(settings::kStoreId, 1);
    if (!entryId.empty() && !storeId.empty())
        driver().outlook.GetNameSpace().object(outlook::GetFolderFromID, entryId, storeId);
}

}  // namespace

bool isFolderConfigured() noexcept {
    FLog& log = driver().log;
    try {
        openStoredFolder();
        const bool configured = driver().cache.fileExists();
        log.trace(L"isFolderConfigured() :", configured);
        return configured;
    } catch (...) {
        log.fault(L"(Error)isFolderConfigured():", caughtFault());
        return false;
    }
}

}  // namespace zelbar
