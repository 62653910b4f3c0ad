#include <windows.h>

#include <olectl.h>

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
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace

extern "C" {

/// Closes the log when the module alone goes. When the whole process ends, nothing is touched any more.
BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* processEnds) noexcept {
    if (reason == DLL_PROCESS_DETACH && !processEnds) resetDriver();
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (classId != CLSID_cDataConnector) return CLASS_E_CLASSNOTAVAILABLE;
    return guarded([&] {
        return makeClassFactory([] { return Com<IUnknown>(makeObject<zelbar::cDataConnector>()); })
            ->QueryInterface(id, result);
    });
}

STDAPI DllCanUnloadNow() noexcept {
    const ModuleState& state = moduleState();
    if (state.liveObjects != 0 || state.locks != 0) return S_FALSE;
    // A cursor that outlived the entry object may have connected anew; nothing of Outlook may be left behind
    // when the module goes.
    return guarded([] {
        releaseOutlook();
        return S_OK;
    });
}

STDAPI DllRegisterServer() noexcept {
    return guarded([] { return registerServer(dataConnector()); });
}

STDAPI DllUnregisterServer() noexcept {
    return guarded([] { return unregisterServer(dataConnector()); });
}

}  // extern "C"
