#include "client/bundle/Versions.h"

#include <windows.h>

#include "client/doctor/Registered.h"
#include "module/OwnModule.h"

namespace pimcall::bundle {
namespace {

/// The version that Windows tells by other ways depends on the program's manifest.
std::wstring windowsVersion() {
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    using GetVersion = LONG(WINAPI*)(OSVERSIONINFOW*);
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (const FARPROC entry = GetProcAddress(library, "RtlGetVersion"))
        reinterpret_cast<GetVersion>(reinterpret_cast<void*>(entry))(&version);
    const bool isWine = GetProcAddress(library, "wine_get_version") != nullptr;
    return std::to_wstring(version.dwMajorVersion) + L"." + std::to_wstring(version.dwMinorVersion) + L"." +
           std::to_wstring(version.dwBuildNumber) + (isWine ? L" (Wine)" : L"");
}

std::wstring line(const wchar_t* what, const std::wstring& version) {
    return std::wstring(what) + L": " + (version.empty() ? L"-" : version) + L"\n";
}

std::wstring fileLine(const wchar_t* what, const doctor::ProgramFile& file) {
    if (!file.exists) return line(what, L"");
    return line(what,
                (file.version.empty() ? L"" : file.version + L", ") + std::to_wstring(file.bits) + L" bits");
}

}  // namespace

std::wstring versionsText(const doctor::Machine& machine) {
    const std::wstring own = zelbar::modulePath();
    const std::wstring folder = own.substr(0, own.find_last_of(L'\\') + 1);
    std::wstring text = line(L"Windows", windowsVersion() + (machine.is64Bit ? L", 64 bits" : L", 32 bits"));
    text += line(L"Remote session", GetSystemMetrics(SM_REMOTESESSION) ? L"yes" : L"no");
    text += fileLine(L"pimcall", doctor::programFile(own));
    text += fileLine(L"fillcache", doctor::programFile(folder + L"fillcache.exe"));
    text += fileLine(L"Driver", machine.driver.used());
    text += fileLine(L"Outlook's program", machine.outlook.program);
    text += line(L"Outlook, running", machine.outlook.live.version);
    for (const doctor::EngineFacts& engine : machine.data.engines)
        text += fileLine(engine.progId.c_str(), engine.program);
    return text;
}

}  // namespace pimcall::bundle
