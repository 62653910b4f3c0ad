#include "client/Automation.h"
#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall::doctor {
namespace {

std::wstring registering(const Machine& machine) {
    return std::wstring(L"In the driver's folder, in a command window of the administrator: ") +
           (machine.is64Bit ? L"%SystemRoot%\\SysWOW64\\regsvr32" : L"regsvr32") + L" zelbar00.dll";
}

std::wstring undoing() {
    return L"Delete the key HKEY_CURRENT_USER\\" + driverClassKey() + L".";
}

bool samePath(const std::wstring& one, const std::wstring& other) {
    return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::wstring versionOf(const ProgramFile& file) {
    return file.version.empty() ? L"without a version" : L"version " + file.version;
}

Finding registered(const Machine& machine) {
    const ProgramFile& file = machine.driver.used();
    if (!file.named()) return problem(L"The driver is not registered.", registering(machine));
    if (!file.exists)
        return problem(L"The driver is registered as " + file.path + L", and there is no such file.",
                       registering(machine));
    return good(file.path + L", " + versionOf(file) + L".");
}

Finding loads(const Machine& machine) {
    const ProgramFile& file = machine.driver.used();
    if (!file.exists) return notice(L"Not tried: there is no file to load.", L"See \"Driver\".");
    if (file.bits != 32)
        return problem(file.bits == 64 ? L"The registered file is a 64-bit one, and the client is not."
                                       : L"The registered file is no program file; it may be damaged.",
                       L"Copy zelbar00.dll anew from the installation's files.");
    if (FAILED(machine.driver.load))
        return problem(L"Windows does not load the driver: " + describe(machine.driver.load) + L".",
                       L"Copy zelbar00.dll anew; if that does not help, ask whether a virus scanner or a "
                       L"policy for programs blocks it.");
    return good(L"Windows loads it, and it hands out its class.");
}

Finding shadow(const Machine& machine) {
    const DriverFacts& driver = machine.driver;
    if (!driver.user.named()) return good(L"This user has no registration of his own.");
    if (!driver.machine.named())
        return notice(L"The driver is registered for this user alone: an elevated client does not find it.",
                      L"Leave it so if that is what you want; otherwise: " + registering(machine));
    if (samePath(driver.user.path, driver.machine.path))
        return notice(L"The driver is registered twice, for all users and for this one, with the same file.",
                      undoing());
    return problem(L"This user's own registration (" + driver.user.path + L") hides the one for all users (" +
                       driver.machine.path + L").",
                   undoing());
}

Finding copies(const Machine& machine) {
    const ProgramFile& beside = machine.driver.beside;
    const ProgramFile& used = machine.driver.used();
    if (!beside.exists || !used.exists || samePath(beside.path, used.path))
        return good(L"No other copy of the driver lies beside this program.");
    if (beside.version == used.version)
        return notice(L"A copy of the driver lies beside this program (" + beside.path +
                          L"), but another file is registered.",
                      L"Register the one that is to be used, and delete the other.");
    return problem(L"The registered driver is " + versionOf(used) + L"; the one beside this program is " +
                       versionOf(beside) + L".",
                   L"End the client, then register the newer one. " + registering(machine));
}

Finding others(const Machine& machine) {
    const auto& names = machine.driver.otherDrivers;
    if (names.empty()) return good(L"No other contacts driver is registered.");
    std::wstring list;
    for (const std::wstring& name : names) list += (list.empty() ? L"" : L", ") + name;
    return notice(L"Other contacts drivers are registered as well: " + list + L".",
                  L"Look into the client's settings which one it uses.");
}

Finding typeLibrary(const Machine& machine) {
    const DriverFacts& driver = machine.driver;
    const ProgramFile& library = driver.usedLibrary();
    if (!library.named())
        return problem(
            L"The type library is not registered: scripts and other threads do not reach the driver.",
            registering(machine));
    if (!library.exists)
        return problem(L"The type library is registered as " + library.path + L", and there is no such file.",
                       registering(machine));
    if (FAILED(driver.libraryLoad))
        return problem(
            L"The type library " + library.path + L" cannot be read: " + describe(driver.libraryLoad) + L".",
            registering(machine));
    if (driver.used().named() && !samePath(library.path, driver.used().path))
        return notice(L"The type library is that of another file: " + library.path + L".",
                      L"Of an older copy, register the driver again. " + registering(machine));
    return good(library.path + L".");
}

}  // namespace

std::span<const Check> driverChecks() {
    static constexpr Check kChecks[] = {
        {L"driver", L"Driver", registered},
        {L"driver-loads", L"Driver loads", loads},
        {L"user-registration", L"Own registration", shadow},
        {L"driver-copies", L"Other copies", copies},
        {L"other-drivers", L"Other drivers", others},
        {L"type-library", L"Type library", typeLibrary},
    };
    return kChecks;
}

}  // namespace pimcall::doctor
