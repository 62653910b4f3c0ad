#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "automation/Fault.h"
#include "numbers/HomePlace.h"
#include "support/OutlookGuard.h"
#include "support/Settings.h"

namespace pimcall::doctor {

/// A program or library that the registry names; no path when it names none.
struct ProgramFile {
    std::wstring path;
    bool exists = false;
    std::wstring version;  ///< "1.1.0.0"; empty without version information.
    int bits = 0;          ///< 32 or 64; 0 for what is no program.

    bool named() const { return !path.empty(); }
};

/// The driver's registration.
struct DriverFacts {
    ProgramFile machine;      ///< For all users.
    ProgramFile user;         ///< For this user; it hides the one for all.
    ProgramFile beside;       ///< The driver's file in this program's own folder.
    HRESULT load = S_OK;      ///< How loading the one that COM takes went.
    ProgramFile typeLibrary;  ///< For all users.
    ProgramFile userLibrary;  ///< For this user.
    HRESULT libraryLoad = S_OK;
    std::vector<std::wstring> otherDrivers;  ///< Names of further contacts drivers that are registered.

    const ProgramFile& used() const { return user.named() ? user : machine; }
    const ProgramFile& usedLibrary() const { return userLibrary.named() ? userLibrary : typeLibrary; }
};

/// A process of Outlook's in this session.
struct OutlookProcess {
    DWORD id = 0;
    std::optional<bool> elevated;  ///< Not known when Windows does not tell.
    bool hasWindow = false;        ///< A main window is to be seen.
    bool hasDialog = false;        ///< A dialog is to be seen.
};

/// A store that is open in Outlook.
struct OpenStore {
    std::wstring name;
    std::wstring storeId;
};

/// What a running Outlook said when it was asked. It is never started for that.
struct LiveOutlook {
    enum class State { NotRunning, Answers, Busy, Silent, Failed };

    State state = State::NotRunning;
    std::wstring version;
    std::vector<OpenStore> stores;
    bool storesKnown = false;  ///< All stores were named.
    zelbar::Fault fault;       ///< Why it failed.

    bool answers() const { return state == State::Answers; }
};

struct OutlookFacts {
    ProgramFile program;  ///< Of the class Outlook.Application.
    bool isNewInstalled = false;
    bool isNewPreferred = false;
    bool isNewRunning = false;
    std::vector<OutlookProcess> processes;
    bool areWeElevated = false;
    LiveOutlook live;
    bool hasProfile = true;
    bool asksForProfile = false;
    zelbar::OutlookGuard guard;
    std::wstring mayReadAddresses;  ///< The driver's own switch, as stored.
};

struct EngineFacts {
    std::wstring progId;
    ProgramFile program;
    HRESULT create = S_OK;
};

/// A row of the cache's table of stores.
struct CachedStore {
    std::wstring index;
    std::wstring storeId;
    long rows = 0;
};

struct DataFacts {
    std::vector<EngineFacts> engines;  ///< Those that are registered, in the driver's order.
    std::wstring folder;
    bool folderExists = false;
    DWORD writeError = 0;  ///< Why no file can be made there.
    ULONGLONG freeBytes = 0;
    bool isShared = false;              ///< All users have this one folder.
    bool isSettingInWrongView = false;  ///< The installation's settings lie where 64-bit programs look.
    std::wstring privateCopy;           ///< Key of settings that Windows has diverted for this user.
    bool cacheExists = false;
    ULONGLONG cacheBytes = 0;
    double cacheDays = 0;  ///< Since it was last written.
    zelbar::Fault cacheFault;
    long rows = 0;
    std::vector<CachedStore> stores;
    long rowsWithoutStore = 0;  ///< Their store's key stands for nothing.
};

/// A folder of the stored choice, and what Outlook says of it.
struct ChosenFolder {
    enum class State { Unknown, There, Gone };
    zelbar::StoredFolder stored;
    State state = State::Unknown;
};

struct FolderFacts {
    std::vector<ChosenFolder> chosen;
    bool configChanged = false;
    bool isSynchroUp = false;
    std::wstring synchroProcess;  ///< The fillcache that has set the flag; empty when another program has.
    bool isSynchroAlive = false;
};

struct FileFacts {
    std::wstring path;
    bool exists = false;
    ULONGLONG bytes = 0;
};

struct TraceFacts {
    std::wstring mode;  ///< As stored: "1" window, "2" file.
    FileFacts trace;
    FileFacts errors;
    numbers::HomePlace place;
    std::wstring placeError;
};

/// What has been seen of the machine, before anything is said of it.
struct Machine {
    bool is64Bit = false;
    DriverFacts driver;
    OutlookFacts outlook;
    DataFacts data;
    FolderFacts folders;
    TraceFacts trace;
};

/// Where the driver's class is registered, below either root.
std::wstring driverClassKey();

/// Looks at everything. Asks a running Outlook, but not for longer than some seconds; starts and changes
/// nothing. `tell` hears what is being looked at.
Machine observe(const std::function<void(const wchar_t*)>& tell);

// Its parts; the later ones may use what the earlier ones have seen.
void observeDriver(Machine& machine);
void observeFolders(Machine& machine);
void observeOutlook(Machine& machine);
void observeData(Machine& machine);
void observeTrace(Machine& machine);

}  // namespace pimcall::doctor
