#include "standin/common/Object.h"

#include <new>

namespace standin {
namespace {

constexpr HRESULT kServerUnavailable = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);

// Only our own objects answer to it; no proxy does.
constexpr IID kOwnInterface = {0x6C1B2E0F, 0x51A7, 0x4D8B, {0x9E, 0x3C, 0x27, 0x5D, 0x88, 0x1F, 0x40, 0x6A}};

Handler handlerFor(const Member& member, WORD flags, bool valueIsObject) {
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        const bool byReference = (flags & DISPATCH_PROPERTYPUTREF) && member.putRef;
        const bool byValue = (flags & DISPATCH_PROPERTYPUT) && member.put;
        if (byReference && (valueIsObject || !byValue)) return member.putRef;
        return byValue ? member.put : nullptr;
    }
    if ((flags & DISPATCH_PROPERTYGET) && member.get) return member.get;
    if ((flags & DISPATCH_METHOD) && member.call) return member.call;
    return nullptr;
}

BSTR newText(const std::wstring& text) {
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace

Object::Object(Server& server, Accounting accounting)
    : server_(server), life_(server.life()), accounting_(accounting), generation_(life_->generation) {
    if (accounting_ == Accounting::Counted) liveToken_.emplace(server);
}

HRESULT Object::QueryInterface(REFIID iid, void** result) noexcept {
    if (!result) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch || iid == kOwnInterface;
    *result = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

Ref<Object> Object::from(IUnknown* stranger) noexcept {
    IDispatch* own = nullptr;
    if (stranger) stranger->QueryInterface(kOwnInterface, reinterpret_cast<void**>(&own));
    return adopt(static_cast<Object*>(own));
}

ULONG Object::AddRef() noexcept {
    return ++references_;
}

ULONG Object::Release() noexcept {
    if (references_ == 1 && accounting_ == Accounting::Counted && !life_->ended) {
        // A client that lets go of an object of another process may be called in meanwhile, too, and be given
        // the object again.
        server_.faults().meet(FaultScript::Moment::Release);
    }
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT Object::GetTypeInfoCount(UINT* count) noexcept {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT Object::GetTypeInfo(UINT, LCID, ITypeInfo** result) noexcept {
    if (!result) return E_POINTER;
    *result = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT Object::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    try {
        ids[0] = lookUp(names[0]);
        return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    } catch (const Error& error) {
        return error.code();
    } catch (...) {
        return E_FAIL;
    }
}

HRESULT Object::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                       EXCEPINFO* exception, UINT*) noexcept {
    if (!parameters) return E_INVALIDARG;
    if (result) VariantInit(result);
    // A member may drop the caller's last reference, as Quit and Close do.
    const Ref<Object> alive(this);
    try {
        Value value = invoke(id, flags, *parameters);
        if (result) *result = value.Detach();
        return S_OK;
    } catch (const Error& error) {
        return report(error, exception);
    } catch (const _com_error& error) {
        return error.Error();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::exception& fault) {
        const std::string text = fault.what();
        return report(Error(E_FAIL, std::wstring(text.begin(), text.end())), exception);
    } catch (...) {
        return E_UNEXPECTED;
    }
}

const Member* Object::find(std::wstring_view name) const {
    const Member* member = members().byName(name);
    return member && offers(*member) ? member : nullptr;
}

bool Object::isAccounted(const Member* member) const {
    return accounting_ != Accounting::Exempt && !(member && member->control);
}

void Object::refuseAfterQuit() const {
    const bool outdated = accounting_ != Accounting::Exempt && generation_ != life_->generation;
    if (outdated || life_->ended) throw Error::plain(kServerUnavailable);
}

DISPID Object::lookUp(const wchar_t* name) {
    refuseAfterQuit();
    const Member* member = find(name ? name : L"");
    if (isAccounted(member)) {
        server_.calls().noteLookUp(members(), member);
        server_.faults().beforeLookUp();
    }
    return member ? member->id : DISPID_UNKNOWN;
}

Value Object::invoke(DISPID id, WORD flags, const DISPPARAMS& parameters) {
    refuseAfterQuit();
    const Member* member = members().byId(id);
    if (!member || !offers(*member)) throw Error::plain(DISP_E_MEMBERNOTFOUND);
    if (isAccounted(member)) {
        server_.calls().noteInvocation(members(), *member);
        const bool quits = server_.faults().beforeInvocation(members(), *member);
        const auto answer = server_.faults().meet(FaultScript::Moment::Call, member);
        if (references_ == 1) server_.calls().noteAbandoned();
        if (answer) return *answer;
        if (quits) {
            server_.quit();
            throw Error::plain(kServerUnavailable);
        }
    }
    beforeCall(*member);
    return dispatch(*member, flags, parameters);
}

Value Object::dispatch(const Member& member, WORD flags, const DISPPARAMS& parameters) {
    const bool assignment = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const Arguments arguments(member, parameters, assignment);
    const VARTYPE type = arguments.assigned().vt;
    const Handler handler = handlerFor(member, flags, type == VT_DISPATCH || type == VT_UNKNOWN);
    // "Fields("X")" and "Fields("X") = 1": a property without arguments passes them on to the object it
    // returns.
    const bool indexed = member.get && member.maxArguments == 0 && arguments.count() > 0;
    if (indexed && (handler || assignment) && !(flags == DISPATCH_METHOD))
        return forwardToDefault(arguments, flags);
    if (!handler) throw Error::plain(DISP_E_MEMBERNOTFOUND);
    arguments.checkCount();
    return handler(*this, arguments);
}

Value Object::forwardToDefault(const Arguments& arguments, WORD flags) {
    const Arguments none(arguments.member(), DISPPARAMS{}, false);
    const Value target = arguments.member().get(*this, none);
    const Ref<Object> collection = target.vt == VT_DISPATCH ? from(target.pdispVal) : Ref<Object>();
    const Member* item = collection ? collection->members().byId(DISPID_VALUE) : nullptr;
    if (!item) throw Error::plain(DISP_E_BADPARAMCOUNT);
    const Arguments passedOn(*item, arguments);
    const bool assignment = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const Handler direct = handlerFor(*item, flags, false);
    if (direct) {
        passedOn.checkCount();
        return direct(*collection.Get(), passedOn);
    }
    if (!assignment) throw Error::plain(DISP_E_MEMBERNOTFOUND);
    passedOn.checkCount();
    const Handler fetch = item->get ? item->get : item->call;
    const Value element = fetch(*collection.Get(), passedOn);
    const Ref<Object> object = element.vt == VT_DISPATCH ? from(element.pdispVal) : Ref<Object>();
    const Member* value = object ? object->members().byId(DISPID_VALUE) : nullptr;
    if (!value || !value->put) throw Error::plain(DISP_E_MEMBERNOTFOUND);
    value->put(*object.Get(), passedOn);
    return Value();
}

HRESULT Object::report(const Error& error, EXCEPINFO* exception) const {
    if (error.isPlain()) return error.code();
    if (exception) {
        *exception = EXCEPINFO{};
        exception->scode = error.code();
        exception->bstrSource = newText(error.source().empty() ? server_.name() : error.source());
        exception->bstrDescription = newText(error.description());
    }
    return DISP_E_EXCEPTION;
}

}  // namespace standin
