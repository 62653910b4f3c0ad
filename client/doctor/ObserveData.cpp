#include <windows.h>

#include <map>

#include "automation/Com.h"
#include "automation/DaoNames.h"
#include "client/CacheReader.h"
#include "client/DriverModule.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Registered.h"
#include "support/Handle.h"
#include "support/Settings.h"

namespace pimcall::doctor {
namespace {

/// Where Windows keeps what a program without rights wrote below HKEY_LOCAL_MACHINE.
constexpr wchar_t kDiverted[] = L"Software\\Classes\\VirtualStore\\MACHINE\\SOFTWARE\\";

EngineFacts engineOf(const wchar_t* progId, const CLSID& id) {
    EngineFacts engine{progId, {}, S_OK};
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        if (!engine.program.named())
            engine.program = programFile(
                textAt(root, L"Software\\Classes\\CLSID\\" + guidText(id) + L"\\InprocServer32", L""));
    zelbar::Com<IDispatch> object;
    engine.create = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch),
                                     reinterpret_cast<void**>(object.put()));
    return engine;
}

void observeEngines(DataFacts& data) {
    for (const wchar_t* progId : zelbar::dao::kEngineProgIds) {
        CLSID id;
        if (SUCCEEDED(CLSIDFromProgID(progId, &id))) data.engines.push_back(engineOf(progId, id));
    }
}

/// Asks for the right alone; no file is made.
DWORD errorOfWriting(const std::wstring& folder) {
    const zelbar::FileHandle opened(CreateFileW(folder.c_str(), FILE_ADD_FILE,
                                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return opened ? ERROR_SUCCESS : GetLastError();
}

void observeFolder(DataFacts& data) {
    const DataFolder folder = dataFolder();
    data.folder = folder.path;
    data.isShared = !folder.isPerUser;
    const DWORD attributes = GetFileAttributesW(data.folder.c_str());
    data.folderExists = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
    if (!data.folderExists) return;
    data.writeError = errorOfWriting(data.folder);
    ULARGE_INTEGER free{};
    if (GetDiskFreeSpaceExW(data.folder.c_str(), &free, nullptr, nullptr)) data.freeBytes = free.QuadPart;
}

void observePlaces(DataFacts& data) {
    const std::wstring install = zelbar::keyOf(zelbar::settings::kMultiUser);
    data.isSettingInWrongView =
        !keyExists(HKEY_LOCAL_MACHINE, install) && keyExists(HKEY_LOCAL_MACHINE, install, KEY_WOW64_64KEY);
    const std::wstring company(zelbar::kCompany);
    for (const std::wstring& key : {L"WOW6432Node\\" + company, company})
        if (keyExists(HKEY_CURRENT_USER, kDiverted + key)) data.privateCopy = kDiverted + key;
}

double daysSince(const FILETIME& then) {
    constexpr double kTicksPerDay = 864e9;
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>((static_cast<ULONGLONG>(time.dwHighDateTime) << 32) | time.dwLowDateTime);
    };
    return (ticks(now) - ticks(then)) / kTicksPerDay;
}

void readCache(DataFacts& data, const std::wstring& path) {
    const CacheReader cache(path);
    std::map<std::wstring, long> rowsByKey;
    cache.rows([&](const CacheReader::Row& row) {
        ++data.rows;
        ++rowsByKey[row.storeKey];
        return true;
    });
    for (const CacheReader::Store& store : cache.stores()) {
        data.stores.push_back({store.index, store.storeId, rowsByKey[store.index]});
        rowsByKey.erase(store.index);
    }
    for (const auto& [key, rows] : rowsByKey)
        if (!key.empty()) data.rowsWithoutStore += rows;
}

void observeCache(DataFacts& data) {
    const std::wstring path = data.folder + L"\\connec00.mdb";
    WIN32_FILE_ATTRIBUTE_DATA file{};
    data.cacheExists = GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &file) != FALSE;
    if (!data.cacheExists) return;
    data.cacheBytes = (static_cast<ULONGLONG>(file.nFileSizeHigh) << 32) | file.nFileSizeLow;
    data.cacheDays = daysSince(file.ftLastWriteTime);
    try {
        readCache(data, path);
    } catch (...) {
        data.cacheFault = zelbar::caughtFault();
    }
}

}  // namespace

void observeData(Machine& machine) {
    DataFacts& data = machine.data;
    observeEngines(data);
    observeFolder(data);
    observePlaces(data);
    observeCache(data);
}

}  // namespace pimcall::doctor
