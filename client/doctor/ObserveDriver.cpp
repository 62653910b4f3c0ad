#include <windows.h>

#include <PIMDriverAbstract.h>

#include "client/Automation.h"
#include "client/doctor/Machine.h"
#include "client/doctor/Registered.h"
#include "module/OwnModule.h"

namespace pimcall::doctor {
namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes\\";
constexpr wchar_t kOwnProgId[] = L"zelbar00.cDataConnector";

ProgramFile classAt(HKEY root) {
    return programFile(textAt(root, driverClassKey() + L"\\InprocServer32", L""));
}

/// A library's registration may end in the number of a resource: "zelbar00.dll\1".
std::wstring withoutResource(std::wstring path) {
    const std::size_t slash = path.find_last_of(L'\\');
    if (slash != std::wstring::npos && path.find_first_not_of(L"0123456789", slash + 1) == std::wstring::npos)
        path.erase(slash);
    return path;
}

ProgramFile libraryAt(HKEY root) {
    const std::wstring key =
        kClasses + (L"TypeLib\\" + guidText(LIBID_PIMDriverAbstract)) + L"\\1.0\\0\\win32";
    return programFile(withoutResource(textAt(root, key, L"")));
}

/// Asks for the class object alone: an object would start Outlook. A driver that was used stays loaded.
HRESULT tryLoading(const std::wstring& path) {
    const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!library) return HRESULT_FROM_WIN32(GetLastError());
    const FARPROC entry = GetProcAddress(library, "DllGetClassObject");
    HRESULT result = HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    if (entry) {
        using GetClass = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
        ComPtr<IClassFactory> factory;
        result = reinterpret_cast<GetClass>(reinterpret_cast<void*>(entry))(
            CLSID_cDataConnector, IID_PPV_ARGS(factory.GetAddressOf()));
    }
    FreeLibrary(library);
    return result;
}

HRESULT tryReading(const std::wstring& libraryPath) {
    ComPtr<ITypeLib> library;
    return LoadTypeLibEx(libraryPath.c_str(), REGKIND_NONE, library.GetAddressOf());
}

/// Every contacts driver of the client has an entry class of this name.
void findOthers(std::vector<std::wstring>& found) {
    constexpr std::wstring_view kEnding = L".cDataConnector";
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE})
        for (const std::wstring& name : subkeysOf(root, L"Software\\Classes"))
            if (name.ends_with(kEnding) && name != kOwnProgId) found.push_back(name);
}

}  // namespace

std::wstring driverClassKey() {
    return kClasses + (L"CLSID\\" + guidText(CLSID_cDataConnector));
}

void observeDriver(Machine& machine) {
    BOOL wow64 = FALSE;
    machine.is64Bit = IsWow64Process(GetCurrentProcess(), &wow64) && wow64;
    DriverFacts& driver = machine.driver;
    driver.machine = classAt(HKEY_LOCAL_MACHINE);
    driver.user = classAt(HKEY_CURRENT_USER);
    const std::wstring own = zelbar::modulePath();
    driver.beside = programFile(own.substr(0, own.find_last_of(L'\\')) + L"\\zelbar00.dll");
    if (driver.used().exists && driver.used().bits == 32) driver.load = tryLoading(driver.used().path);
    driver.typeLibrary = libraryAt(HKEY_LOCAL_MACHINE);
    driver.userLibrary = libraryAt(HKEY_CURRENT_USER);
    if (driver.usedLibrary().exists) driver.libraryLoad = tryReading(driver.usedLibrary().path);
    findOthers(driver.otherDrivers);
}

Machine observe(const std::function<void(const wchar_t*)>& tell) {
    Machine machine;
    tell(L"Looking at the registration");
    observeDriver(machine);
    observeFolders(machine);
    tell(L"Asking Outlook");
    observeOutlook(machine);
    tell(L"Reading the cache");
    observeData(machine);
    observeTrace(machine);
    return machine;
}

}  // namespace pimcall::doctor
