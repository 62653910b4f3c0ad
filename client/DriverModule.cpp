#include "client/DriverModule.h"

#include "client/doctor/Machine.h"
#include "client/doctor/Registered.h"
#include "support/mLogError.h"
#include "support/modMultiUser.h"

namespace pimcall {

zelbar::Module driverModule() {
    zelbar::Module module = zelbar::thisModule();
    module.stem = L"zelbar00";
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        const std::wstring path = doctor::textAt(root, doctor::driverClassKey() + L"\\InprocServer32", L"");
        if (const std::size_t slash = path.find_last_of(L'\\'); slash != std::wstring::npos) {
            module.folder = path.substr(0, slash);
            module.stem = path.substr(slash + 1, path.find_last_of(L'.') - slash - 1);
            break;
        }
    }
    return module;
}

DataFolder dataFolder() {
    const zelbar::Module module = driverModule();
    zelbar::mLogError errors(module);
    zelbar::modMultiUser paths(module, errors);
    const std::wstring path = paths.chosenFolder();
    return {path, paths.IsPerUserPath()};
}

}  // namespace pimcall
