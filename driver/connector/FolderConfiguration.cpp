#include "connector/FolderConfiguration.h"

#include <string>

#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "core/DriverState.h"
#include "support/CRegSettings.h"

namespace zelbar {

namespace {

/// Throws when a folder is stored that Outlook does not open.
void openStoredFolder() {
    const CRegSettings settings(L"7316\\Popup");
    const std::wstring entryId = settings.GetSetting(L"zelbar00folder", L"entryId1");
    const std::wstring storeId = settings.GetSetting(L"zelbar00folder", L"storeId1");
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
        log.trace(L"(Error)isFolderConfigured():", caughtFault().description);
        return false;
    }
}

}  // namespace zelbar
