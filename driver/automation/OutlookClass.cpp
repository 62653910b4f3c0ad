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
bool isInAnotherProcess(IClassFactory& factory) {
    return static_cast<bool>(Com<IClassFactory>::share(&factory).as<IUnknown>(IID_IClientSecurity));
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
    const CLSID classId = classOf(outlook::kProgId);
    std::shared_ptr<IClassFactory> found;
    const HRESULT result = gateway_.calls()->carryOut(outlook::kProgId, kPlain, [&] {
        Com<IClassFactory> factory;
        const HRESULT answer = CoGetClassObject(classId, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, nullptr,
                                                IID_IClassFactory, reinterpret_cast<void**>(factory.put()));
        if (FAILED(answer)) return answer;
        // Wine has been seen to succeed without an object where a server ended in this very moment.
        if (!factory) return MK_E_UNAVAILABLE;
        found = owned(std::move(factory));
        return make(*found, application);
    });
    if (FAILED(result)) throw faultOf(result, outlook::kProgId);
    if (isInAnotherProcess(*found)) kept_ = std::move(found);
}

/// With an owner that does not wait for a hanging Outlook when it lets go.
std::shared_ptr<IClassFactory> OutlookClass::owned(Com<IClassFactory> factory) const {
    return {factory.detach(), [gateway = gateway_](IClassFactory* last) {
                gateway.release(Server::Outlook, Com<IUnknown>::adopt(last));
            }};
}

}  // namespace zelbar
