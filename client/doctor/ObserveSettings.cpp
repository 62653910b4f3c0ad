#include "client/DriverModule.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Registered.h"
#include "support/ProcessName.h"
#include "support/Settings.h"
#include "support/Text.h"
#include "support/mLogError.h"

namespace pimcall::doctor {

namespace settings = zelbar::settings;

void observeFolders(Machine& machine) {
    FolderFacts& folders = machine.folders;
    for (const zelbar::StoredFolder& stored : zelbar::storedFolders()) folders.chosen.push_back({stored});
    folders.configChanged = zelbar::leadingInteger(zelbar::getSetting(settings::kConfigChanged)) != 0;
    folders.isSynchroUp = zelbar::readSetting(settings::kSynchroInProgress) == L"1";
    folders.synchroProcess = zelbar::getSetting(settings::kSynchroProcess);
    folders.isSynchroAlive =
        !folders.synchroProcess.empty() && zelbar::isProcessRunning(folders.synchroProcess);
}

void observeTrace(Machine& machine) {
    TraceFacts& trace = machine.trace;
    const zelbar::Module driver = driverModule();
    trace.mode = zelbar::readSetting(settings::kDevelopper);
    trace.trace = fileFacts(driver.folder + L"\\" + driver.stem + L".log");
    trace.errors = fileFacts(zelbar::errorFilePath());
    try {
        trace.place = numbers::findHomePlace({});
    } catch (const numbers::BadPlace& bad) {
        trace.placeError = bad.sentence;
    }
}

}  // namespace pimcall::doctor
