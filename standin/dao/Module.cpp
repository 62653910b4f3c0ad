#include <windows.h>

#include "module/OwnModule.h"
#include "standin/dao/Host.h"

namespace standin::dao {
namespace {

Engine& engine() {
    static Engine instance;
    return instance;
}

ClassEntry entry() {
    return {kEngineClass, L"DAO DBEngine stand-in", {kEngineProgId}, zelbar::modulePath(), true};
}

template <class Action>
HRESULT attempt(Action action) noexcept {
    try {
        return action();
    } catch (const Error& error) {
        return error.code();
    } catch (...) {
        return E_UNEXPECTED;
    }
}

}  // namespace
}  // namespace standin::dao

using namespace standin::dao;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!IsEqualCLSID(clsid, kEngineClass)) return CLASS_E_CLASSNOTAVAILABLE;
    return attempt([&] { return engine().factory()->QueryInterface(iid, object); });
}

STDAPI DllCanUnloadNow() {
    return engine().server().liveObjects() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return attempt([] {
        standin::registerClass(entry());
        return S_OK;
    });
}

STDAPI DllUnregisterServer() {
    return attempt([] {
        standin::unregisterClass(entry());
        return S_OK;
    });
}
