#include <windows.h>

#include <tlhelp32.h>

#include <algorithm>

#include "client/doctor/AskOutlook.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Registered.h"
#include "support/Handle.h"
#include "support/Settings.h"

namespace pimcall::doctor {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";
constexpr wchar_t kOffice[] = L"Software\\Microsoft\\Office\\";
constexpr REGSAM kViews[] = {0, KEY_WOW64_64KEY};

/// The program of the class, wherever it is registered: a program serves callers of either kind.
ProgramFile outlookProgram() {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        for (const REGSAM view : kViews) {
            const std::wstring id =
                textAt(root, kClasses + std::wstring(L"Outlook.Application\\CLSID"), L"", view);
            if (id.empty()) continue;
            const std::wstring server =
                textAt(root, kClasses + (L"CLSID\\" + id) + L"\\LocalServer32", L"", view);
            if (!server.empty()) return programFile(server);
        }
    return {};
}

bool sameName(const wchar_t* one, const wchar_t* other) {
    return CompareStringOrdinal(one, -1, other, -1, TRUE) == CSTR_EQUAL;
}

bool isInThisSession(DWORD process) {
    DWORD own = 0, other = 0;
    return ProcessIdToSessionId(GetCurrentProcessId(), &own) && ProcessIdToSessionId(process, &other) &&
           own == other;
}

std::optional<bool> isElevated(HANDLE process) {
    HANDLE token = nullptr;
    if (!process || !OpenProcessToken(process, TOKEN_QUERY, &token)) return {};
    const zelbar::FileHandle owner(token);
    TOKEN_ELEVATION elevation{};
    DWORD size = 0;
    if (!GetTokenInformation(token, TokenElevation, &elevation, sizeof elevation, &size)) return {};
    return elevation.TokenIsElevated != 0;
}

BOOL CALLBACK noteWindow(HWND window, LPARAM found) noexcept {
    auto& processes = *reinterpret_cast<std::vector<OutlookProcess>*>(found);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    const auto process = std::ranges::find(processes, owner, &OutlookProcess::id);
    if (process == processes.end() || !IsWindowVisible(window)) return TRUE;
    wchar_t name[32] = {};
    GetClassNameW(window, name, ARRAYSIZE(name));
    process->hasWindow |= sameName(name, L"rctrl_renwnd32");
    process->hasDialog |= sameName(name, L"#32770");
    return TRUE;
}

void observeProcesses(OutlookFacts& outlook) {
    const zelbar::FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry)) {
        if (sameName(entry.szExeFile, L"olk.exe")) outlook.isNewRunning = true;
        if (!sameName(entry.szExeFile, L"OUTLOOK.EXE") || !isInThisSession(entry.th32ProcessID)) continue;
        const zelbar::FileHandle process(
            OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ProcessID));
        outlook.processes.push_back({entry.th32ProcessID, isElevated(process.get()), false, false});
    }
    EnumWindows(noteWindow, reinterpret_cast<LPARAM>(&outlook.processes));
    outlook.areWeElevated = isElevated(GetCurrentProcess()).value_or(false);
}

void observeNewOutlook(OutlookFacts& outlook) {
    const std::wstring preferences = kOffice + std::wstring(L"16.0\\Outlook\\Preferences");
    outlook.isNewPreferred = numberAt(HKEY_CURRENT_USER, preferences, L"UseNewOutlook") == 1u;
    wchar_t folder[MAX_PATH] = {};
    const DWORD length = ExpandEnvironmentStringsW(L"%LOCALAPPDATA%\\Microsoft\\Olk", folder, MAX_PATH);
    outlook.isNewInstalled = outlook.isNewRunning || (length > 0 && length <= MAX_PATH &&
                                                      GetFileAttributesW(folder) != INVALID_FILE_ATTRIBUTES);
}

/// Office's versions, newest first; the one of the registered program before all others.
std::vector<std::wstring> officeVersions(const ProgramFile& program) {
    std::vector<std::wstring> versions = {L"16.0", L"15.0", L"14.0", L"12.0", L"11.0"};
    const std::wstring own = program.version.substr(0, program.version.find(L'.')) + L".0";
    std::stable_partition(versions.begin(), versions.end(),
                          [&](const std::wstring& version) { return version == own; });
    return versions;
}

void observeProfile(OutlookFacts& outlook) {
    bool found = keyExists(HKEY_CURRENT_USER,
                           L"Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows Messaging "
                           L"Subsystem\\Profiles");
    for (const std::wstring& version : officeVersions(outlook.program)) {
        const std::wstring key = kOffice + version + L"\\Outlook";
        found |= keyExists(HKEY_CURRENT_USER, key + L"\\Profiles");
        outlook.asksForProfile |= numberAt(HKEY_CURRENT_USER, key, L"PickLogonProfile").value_or(0) != 0;
    }
    outlook.asksForProfile |= textAt(HKEY_CURRENT_USER, L"Software\\Microsoft\\Exchange\\Client\\Options",
                                     L"PickLogonProfile") == L"1";
    // An Outlook that answers has one, wherever it keeps it.
    outlook.hasProfile = found || outlook.live.answers();
}

}  // namespace

void observeOutlook(Machine& machine) {
    OutlookFacts& outlook = machine.outlook;
    outlook.program = outlookProgram();
    observeProcesses(outlook);
    observeNewOutlook(outlook);
    outlook.live = askOutlook(!outlook.processes.empty(), machine.folders.chosen);
    observeProfile(outlook);
    outlook.guard =
        zelbar::outlookGuard(outlook.live.answers() ? outlook.live.version : outlook.program.version);
    outlook.mayReadAddresses = zelbar::readSetting(zelbar::settings::kNoEmailAddressAccess);
}

}  // namespace pimcall::doctor
