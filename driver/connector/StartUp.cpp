#include "connector/StartUp.h"

#include <initializer_list>

#include "actions/cPIMActions.h"
#include "automation/Attempts.h"
#include "connector/Parts.h"
#include "core/DriverState.h"
#include "dialogs/FLogWindow.h"
#include "dialogs/FTimer.h"
#include "dialogs/frmMessageForm.h"
#include "support/Clock.h"
#include "support/Settings.h"

namespace zelbar {

namespace {

constexpr UINT kTimerMilliseconds = 10;

/// The hourglass while start-up lasts.
class BusyPointer {
  public:
    BusyPointer() : before_(SetCursor(LoadCursor(nullptr, IDC_WAIT))) {}
    ~BusyPointer() { SetCursor(before_); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

  private:
    HCURSOR before_;
};

void logLines(FLog& log, std::initializer_list<const wchar_t*> lines) {
    for (const wchar_t* line : lines) log.trace(line);
}

/// The add-in fills the cache when Outlook starts; what is opened before it has finished would be half full.
/// It is given forty seconds.
void waitForAddIn(const DriverState& state) {
    constexpr DWORD kStepMilliseconds = 200;
    for (int counter = 200;; --counter) {
        if (readSetting(settings::kSynchroInProgress) != L"1" || counter < 1) return;
        state.sleep(kStepMilliseconds);
    }
}

void openLog(DriverState& state, Attempts& attempt) {
    attempt([&] { state.languages.CurrentCharset(state.languages.GetChartset()); });
    const std::wstring banner = dateText(currentDate()) + L": * Driver startup *";
    state.log.window(&logWindow(windowParts(state)));
    state.log.load();
    if (state.log.LogEnabled()) state.log.AddSimpleLog(banner);
    logLines(state.log,
             {L"*************************", L"* Driver initialization *", L"*************************", L""});
}

/// The user has just started the client, and Outlook may have to start as well.
void connectToOutlook(DriverState& state, Attempts& attempt) {
    const auto deadline = state.outlook.timeForUser();
    state.log.trace(L"Connecting to Outlook...");
    attempt([&] { state.outlook.connectApplication(); });
    state.log.trace(L"Connecting to Outlook...GetNameSpace");
    attempt([&] { state.outlook.connectNameSpace(); });
}

void openCache(DriverState& state, Attempts& attempt) {
    state.log.trace(L"Connecting to DAO...");
    attempt([&] { state.cache.openWorkspace(); });
    state.log.trace(L"Testing file existence (Connec00.mdb)...");
    if (state.cache.fileExists()) {
        state.log.trace(L"File exists: Connecting to database...");
        attempt([&] { state.cache.openDatabase(); });
        state.firstLaunch = false;
    } else {
        state.log.trace(L"File does not exist !!! (First launch ?)");
        state.firstLaunch = true;
    }
    state.cache.ReadPst();
}

}  // namespace

void startUp(DriverState& state) noexcept {
    try {
        const BusyPointer pointer;
        Attempts attempt([&state](const Fault& fault) {
            state.log.trace(L"Error(Class_Initialize - DataConnector): ", fault.description, L" in ",
                            fault.source, L"\r\nInit: Going on execution...");
        });
        openLog(state, attempt);
        connectToOutlook(state, attempt);
        state.log.trace(L"---> Waiting end of addin init.");
        waitForAddIn(state);
        openCache(state, attempt);
        if (!state.user.messageWindow) state.user.messageWindow = &messageForm(windowParts(state));
        state.log.trace(L"Creating default ActionList...");
        attempt([&] { state.actions = makeActions(actionParts(state)); });
        state.log.trace(L"Timer initialization");
        attempt([] { timerForm().Interval(kTimerMilliseconds); });
        state.outlook.release();
        attempt([&] { state.texts.init(0); });
        logLines(state.log, {L"*****************************", L"* fin Driver initialization *",
                             L"*****************************", L""});
    } catch (...) {
        // Not even memory for the log: the driver is there all the same, with what has been set up.
    }
}

void shutDown(DriverState& state) noexcept {
    try {
        Attempts attempt([&state](const Fault& fault) {
            state.log.fault(L"Outlook2000 driver, error(Class_Terminate): ", fault);
        });
        attempt([&] { state.directory.close(); });
        attempt([&] { state.employees.close(); });
        attempt([&] { state.cache.closeDatabase(); });
        attempt([&] { state.cache.closeWorkspace(); });
        state.texts.release();
        state.actions = {};
        state.log.trace(L"Outlook deallocation...");
        state.outlook.release();
        timerForm().unload();
    } catch (...) {
        // What could not be closed goes with the process.
    }
}

}  // namespace zelbar
