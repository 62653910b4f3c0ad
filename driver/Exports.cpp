#include <windows.h>

#include <olectl.h>

#include <new>

#include "com/ClassFactory.h"
#include "com/ModuleState.h"
#include "com/Registration.h"
#include "connector/cDataConnector.h"
#include "core/DriverState.h"

using namespace zelbar;

namespace {

RegisteredClass dataConnector() {
    return {CLSID_cDataConnector, L"zelbar00.cDataConnector", L"Tessaria Outlook contacts driver"};
}

template <class Work>
HRESULT guarded(Work&& work) noexcept {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

bool isInUse() {
    const ModuleState& state = moduleState();
    return state.liveObjects != 0 || state.locks != 0;
}

}  // namespace

// How long the module lives. One that is only registered comes and goes. Once it has handed out a class
// object it stays in the process: its thread library loses a slot of the process at each unloading, and COM
// unmaps at its own end even what still has windows. So nothing is left to do when the module is unmapped,
// under the loader's lock, where no object of others may be released; there is no DllMain. What a client has
// always had from unloading and loading again, a driver that starts afresh, it gets whenever DllCanUnloadNow
// says S_OK: by then the driver's state is gone.

extern "C" {

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (classId != CLSID_cDataConnector) return CLASS_E_CLASSNOTAVAILABLE;
    return guarded([&] {
        HMODULE pinned = nullptr;
        GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                           reinterpret_cast<LPCWSTR>(&DllGetClassObject), &pinned);
        return makeClassFactory([] { return Com<IUnknown>(makeObject<zelbar::cDataConnector>()); })
            ->QueryInterface(id, result);
    });
}

STDAPI DllCanUnloadNow() {
    return guarded([] {
        if (isInUse()) return S_FALSE;
        // Letting Outlook go serves messages, so a client may have asked for a driver again by the end.
        resetDriver();
        return isInUse() ? S_FALSE : S_OK;
    });
}

// "user" for the one at work alone, who needs no rights for it; without a text for all.
STDAPI DllInstall(BOOL install, LPCWSTR text) {
    const bool isForUser = text && _wcsicmp(text, L"user") == 0;
    if (text && *text && !isForUser) return E_INVALIDARG;
    const Audience audience = isForUser ? Audience::User : Audience::Machine;
    return guarded([&] {
        return install ? registerServer(dataConnector(), audience)
                       : unregisterServer(dataConnector(), audience);
    });
}

STDAPI DllRegisterServer() {
    return guarded([] { return registerServer(dataConnector()); });
}

STDAPI DllUnregisterServer() {
    return guarded([] { return unregisterServer(dataConnector()); });
}

}  // extern "C"
