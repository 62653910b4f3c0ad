#include "automation/Gateway.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "automation/Bstr.h"
#include "automation/Fault.h"
#include "automation/Object.h"
#include "automation/OutgoingCalls.h"

namespace zelbar {

namespace {

const wchar_t* nameOf(Server server) {
    switch (server) {
        case Server::Outlook:
            return L"Microsoft Outlook";
        case Server::Dao:
            return L"DAO";
        default:
            return L"client";
    }
}

/// EXCEPINFO with owned texts.
struct ExceptionInfo : EXCEPINFO {
    ExceptionInfo() : EXCEPINFO{} {}
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
    ~ExceptionInfo() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
};

Fault exceptionFault(ExceptionInfo& info, Server server) {
    if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
    Fault result = faultOf(info.scode ? info.scode : DISP_E_EXCEPTION, nameOf(server));
    if (!info.scode && info.wCode)
        result = {info.wCode, runtimeFault(info.wCode).description, std::move(result.source)};
    if (info.bstrDescription) result.description = textOf(info.bstrDescription);
    if (info.bstrSource) result.source = textOf(info.bstrSource);
    return result;
}

WORD flagsOf(Gateway::Kind kind) {
    switch (kind) {
        case Gateway::Kind::Put:
            return DISPATCH_PROPERTYPUT;
        case Gateway::Kind::PutReference:
            return DISPATCH_PROPERTYPUTREF;
        // Some of Outlook's getters are declared as methods and the other way round.
        default:
            return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    }
}

}  // namespace

CLSID classOf(const wchar_t* progId) {
    CLSID classId;
    if (const HRESULT result = CLSIDFromProgID(progId, &classId); FAILED(result))
        throw faultOf(result, progId);
    return classId;
}

Gateway::Gateway(CallClock& clock) : calls_(std::make_shared<OutgoingCalls>(clock)) {}

template <class Call>
HRESULT Gateway::carryOut(Server server, const wchar_t* name, unsigned manner, const Call& call) const {
    return server == Server::Outlook ? calls_->carryOut(name, manner, std::cref(call)) : call();
}

Object Gateway::create(Server server, const wchar_t* progId, ObjectClass objectClass) const {
    const Gateway own = *this;
    const CLSID classId = classOf(progId);
    Com<IDispatch> created;
    const HRESULT result = carryOut(server, progId, kPlain, [&] {
        return CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER,
                                __uuidof(IDispatch), reinterpret_cast<void**>(created.put()));
    });
    if (FAILED(result)) throw faultOf(result, progId);
    return Object(own, server, std::move(created), objectClass);
}

Object Gateway::running(Server server, const wchar_t* progId, ObjectClass objectClass) const {
    const Gateway own = *this;
    const CLSID classId = classOf(progId);
    Com<IDispatch> target;
    const HRESULT result = carryOut(server, progId, kPlain, [&] {
        Com<IUnknown> active;
        const HRESULT answer = GetActiveObject(classId, nullptr, active.put());
        if (FAILED(answer)) return answer;
        // Seen on Wine: success and no object, for a server that ended in this very moment.
        if (!active) return MK_E_UNAVAILABLE;
        return active->QueryInterface(__uuidof(IDispatch), reinterpret_cast<void**>(target.put()));
    });
    if (FAILED(result)) throw faultOf(result, progId);
    return Object(own, server, std::move(target), objectClass);
}

DISPID Gateway::lookUp(IDispatch& target, Server server, const wchar_t* name) const {
    auto* asked = const_cast<wchar_t*>(name);  // the interface predates const
    DISPID number = DISPID_UNKNOWN;
    const HRESULT result = carryOut(server, name, kPlain, [&] {
        return target.GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &number);
    });
    if (FAILED(result)) {
        Fault fault = faultOf(result, nameOf(server));
        if (result == DISP_E_UNKNOWNNAME) fault.description += std::wstring(L": ") + name;
        throw fault;
    }
    return number;
}

Variant Gateway::invoke(IDispatch& target, Server server, ObjectClass objectClass, const Member& member,
                        Kind kind, std::initializer_list<Variant> arguments) const {
    std::vector<VARIANT> reversed(arguments.size());
    std::transform(std::rbegin(arguments), std::rend(arguments), reversed.begin(),
                   [](const Variant& argument) { return argument.raw(); });
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
    if (kind != Kind::Call) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }

    const bool remembers = objectClass >= 0;
    const Key key{server, objectClass, member.name};
    const auto known = remembers ? numbers_->find(key) : numbers_->end();
    bool fresh = known == numbers_->end();
    DISPID number = fresh ? lookUp(target, server, member.name) : known->second;
    const unsigned manner = kind == Kind::Call ? member.manner : unsigned{kPlain};
    while (true) {
        Variant result;
        std::optional<ExceptionInfo> info;
        HRESULT answer = S_OK;
        carryOut(server, member.name, manner, [&] {
            info.emplace();
            answer = target.Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, flagsOf(kind), &parameters,
                                   kind == Kind::Call ? result.put() : nullptr, &*info, nullptr);
            return answer == DISP_E_EXCEPTION && info->scode ? info->scode : answer;
        });
        if (SUCCEEDED(answer)) {
            if (fresh && remembers) (*numbers_)[key] = number;
            return result;
        }
        if (answer == DISP_E_EXCEPTION) throw exceptionFault(*info, server);
        if (answer != DISP_E_MEMBERNOTFOUND || fresh) throw faultOf(answer, nameOf(server));
        // The remembered number is not this object's: a server was exchanged under the driver.
        fresh = true;
        number = lookUp(target, server, member.name);
    }
}

void Gateway::release(Server server, Com<IUnknown> reference) const noexcept {
    if (server == Server::Outlook) calls_->release(std::move(reference));
}

}  // namespace zelbar
