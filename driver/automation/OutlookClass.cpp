#include "automation/OutlookClass.h"

#include <objidl.h>

#include <utility>

#include "automation/Fault.h"
#include "automation/OutgoingCalls.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

HRESULT make(IClassFactory& factory, Com<IDispatch>& application) {
    return factory.CreateInstance(nullptr, __uuidof(IDispatch), reinterpret_cast<void**>(application.put()));
}

/// Proxies have this interface, and hardly anything else has it.
bool isInAnotherProcess(const Com<IClassFactory>& factory) {
    return static_cast<bool>(factory.as<IUnknown>(IID_IClientSecurity));
}

}  // namespace

Object OutlookClass::newApplication() {
    Com<IDispatch> application;
    if (!makesOne(application)) findAndMake(application);
    return Object(gateway_, Server::Outlook, std::move(application), outlook::kApplication);
}

/// False when no class is kept, or it makes no objects any more: its Outlook has been closed.
bool OutlookClass::makesOne(Com<IDispatch>& application) {
    // A share: while Outlook is asked the client may come in, and let this be forgotten.
    const auto kept = kept_;
    if (!kept) return false;
    const HRESULT result =
        gateway_.calls()->carryOut(outlook::kProgId, kPlain, [&] { return make(*kept, application); });
    if (SUCCEEDED(result)) return true;
    if (const Fault fault = faultOf(result, outlook::kProgId); saysBusy(fault)) throw fault;
    forget();
    return false;
}

void OutlookClass::findAndMake(Com<IDispatch>& application) {
    CLSID classId;
    HRESULT result = CLSIDFromProgID(outlook::kProgId, &classId);
    if (FAILED(result)) throw faultOf(result, outlook::kProgId);
    Com<IClassFactory> found;
    result = gateway_.calls()->carryOut(outlook::kProgId, kPlain, [&] {
        const HRESULT answer = CoGetClassObject(classId, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, nullptr,
                                                IID_IClassFactory, reinterpret_cast<void**>(found.put()));
        return FAILED(answer) ? answer : make(*found, application);
    });
    if (FAILED(result)) throw faultOf(result, outlook::kProgId);
    if (isInAnotherProcess(found))
        kept_ = {found.detach(), [gateway = gateway_](IClassFactory* factory) {
                     gateway.release(Server::Outlook, Com<IUnknown>::adopt(factory));
                 }};
}

}  // namespace zelbar
