#include <algorithm>
#include <cmath>

#include "client/Automation.h"
#include "client/FaultWords.h"
#include "client/Figures.h"
#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall::doctor {
namespace {

constexpr ULONGLONG kLittleSpace = 20ULL << 20;
constexpr double kOldDays = 14;

Finding engine(const Machine& machine) {
    const auto& engines = machine.data.engines;
    const auto usable = std::ranges::find_if(
        engines, [](const EngineFacts& candidate) { return SUCCEEDED(candidate.create); });
    if (usable != engines.end())
        return good(usable->progId + (usable->program.named() ? L": " + usable->program.path : L"") + L".");
    constexpr wchar_t kFix[] =
        L"As administrator: %windir%\\SysWOW64\\regsvr32 \"%CommonProgramFiles(x86)%\\Microsoft "
        L"Shared\\DAO\\dao360.dll\"; or install the 32-bit Access database engine.";
    if (engines.empty())
        return problem(L"There is no DAO engine for 32-bit programs: the cache cannot be opened.", kFix);
    const EngineFacts& first = engines.front();
    if (first.program.bits == 64)
        return problem(first.progId + L" is a 64-bit engine, and the client is a 32-bit program.", kFix);
    if (first.program.named() && !first.program.exists)
        return problem(
            first.progId + L" is registered as " + first.program.path + L", and there is no such file.",
            kFix);
    return problem(first.progId + L" cannot be started: " + describe(first.create) + L".", kFix);
}

Finding folder(const Machine& machine) {
    const DataFacts& data = machine.data;
    if (!data.folderExists)
        return notice(L"The data folder " + data.folder + L" does not exist yet.",
                      L"fillcache makes it; if it is to lie elsewhere, correct DataPath first.");
    if (data.writeError != 0)
        return problem(L"This user may not write into the data folder " + data.folder + L": " +
                           describe(HRESULT_FROM_WIN32(data.writeError)) + L".",
                       L"Give the users the right to change files there, or correct DataPath.");
    if (data.freeBytes < kLittleSpace)
        return problem(L"The disk of the data folder " + data.folder + L" has only " +
                           bytesText(data.freeBytes) + L" left.",
                       L"Make room there.");
    return good(data.folder + (data.isShared ? L", one for all users." : L", this user's own."));
}

Finding settingsPlace(const Machine& machine) {
    const DataFacts& data = machine.data;
    if (!data.privateCopy.empty())
        return problem(L"This user has a private copy of the installation's settings, which hides them.",
                       L"Delete the key HKEY_CURRENT_USER\\" + data.privateCopy + L".");
    if (data.isSettingInWrongView)
        return problem(
            L"The installation's settings were written by a 64-bit program, where the driver does "
            L"not look.",
            L"Write them below HKEY_LOCAL_MACHINE\\Software\\Wow6432Node, or with "
            L"%windir%\\SysWOW64\\reg.exe.");
    return good(L"The installation's settings are where the driver looks.");
}

Finding cache(const Machine& machine) {
    const DataFacts& data = machine.data;
    if (!data.cacheExists)
        return problem(L"There is no cache (connec00.mdb) in the data folder: every caller is unknown.",
                       L"Run fillcache, then start the client again.");
    if (data.cacheFault)
        return problem(L"The cache cannot be read: " + inWords(data.cacheFault) + L".",
                       L"If \"DAO\" is fine, end the client, delete connec00.mdb and run fillcache.");
    if (data.rows == 0)
        return problem(L"The cache is empty: every caller is unknown.",
                       L"Look at the chosen folders (pimcall folders), then run fillcache.");
    return good(L"The cache has " + counted(data.rows, L"row") + L" in " + bytesText(data.cacheBytes) + L".");
}

Finding age(const Machine& machine) {
    const DataFacts& data = machine.data;
    if (!data.cacheExists) return notice(L"Not known: there is no cache.", L"See \"Cache\".");
    const std::wstring days = std::to_wstring(std::lround(std::floor(data.cacheDays)));
    if (data.cacheDays > kOldDays)
        return notice(L"The cache was last written " + days + L" days ago.",
                      L"If contacts have changed since, run fillcache; best at every logon.");
    return good(data.cacheDays < 1 ? L"The cache was last written within a day."
                                   : L"The cache was last written " + days + L" days ago.");
}

bool isOpen(const LiveOutlook& live, const std::wstring& storeId) {
    return std::ranges::any_of(live.stores, [&](const OpenStore& open) { return open.storeId == storeId; });
}

Finding stores(const Machine& machine) {
    const DataFacts& data = machine.data;
    if (data.rowsWithoutStore > 0)
        return problem(L"Rows of the cache whose store its own table does not have: " +
                           std::to_wstring(data.rowsWithoutStore) + L".",
                       L"End the client, delete connec00.mdb and run fillcache.");
    if (!data.cacheExists || data.cacheFault)
        return notice(L"Not known: no cache to read.", L"See \"Cache\".");
    if (!machine.outlook.live.answers() || !machine.outlook.live.storesKnown)
        return notice(L"The cache knows " + counted(static_cast<long>(data.stores.size()), L"store") +
                          L"; Outlook did not say which are open.",
                      L"Start Outlook and run this again.");
    long closed = 0, rows = 0;
    for (const CachedStore& store : data.stores) {
        if (isOpen(machine.outlook.live, store.storeId)) continue;
        ++closed;
        rows += store.rows;
    }
    if (closed > 0 && rows > 0)
        return notice(L"Stores of the cache that are not open in Outlook: " + std::to_wstring(closed) +
                          L"; rows that lead to nobody: " + std::to_wstring(rows) + L".",
                      L"Open the mailbox or contacts file in Outlook again, or choose the folders anew and "
                      L"run fillcache.");
    return good(L"Every store with rows in the cache is open in Outlook.");
}

}  // namespace

std::span<const Check> dataChecks() {
    static constexpr Check kChecks[] = {
        {L"dao", L"DAO", engine},
        {L"data-folder", L"Data folder", folder},
        {L"settings-place", L"Settings", settingsPlace},
        {L"cache", L"Cache", cache},
        {L"cache-age", L"Cache's age", age},
        {L"stores", L"Stores", stores},
    };
    return kChecks;
}

}  // namespace pimcall::doctor
