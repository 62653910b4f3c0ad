#include "com/LateCall.h"

#include <oleauto.h>

#include <algorithm>
#include <deque>
#include <vector>

#include "automation/Com.h"
#include "automation/Fault.h"
#include "automation/Variant.h"
#include "com/CallerVariant.h"

namespace zelbar {

namespace {

/// What stands for an argument that the caller did not pass as the member declares it.
struct Stand {
    Variant value;
    VARIANT* caller;  // the caller's variant that gets the result, or none for an argument by value
};

/// A member's description, released with the type that gave it.
class Function {
  public:
    Function(ITypeInfo& info, DISPID member, WORD flags) : info_(info) {
        TYPEATTR* type = nullptr;
        if (FAILED(info.GetTypeAttr(&type))) return;
        for (UINT i = 0; i < type->cFuncs && !description_; ++i) {
            FUNCDESC* candidate = nullptr;
            if (FAILED(info.GetFuncDesc(i, &candidate))) continue;
            if (candidate->memid == member && (candidate->invkind & flags))
                description_ = candidate;
            else
                info.ReleaseFuncDesc(candidate);
        }
        info.ReleaseTypeAttr(type);
    }
    ~Function() {
        if (description_) info_.ReleaseFuncDesc(description_);
    }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;

    /// The type behind the reference that argument `i` (from the left) is declared as; VT_EMPTY if it is none
    /// that the caller gets something back through.
    VARTYPE referenced(UINT i) const {
        const ELEMDESC* const declared = parameter(i);
        if (!declared || !(declared->paramdesc.wParamFlags & PARAMFLAG_FOUT) ||
            (declared->paramdesc.wParamFlags & PARAMFLAG_FRETVAL) || declared->tdesc.vt != VT_PTR)
            return VT_EMPTY;
        const VARTYPE type = declared->tdesc.lptdesc->vt;
        return type == VT_PTR || type == VT_USERDEFINED ? static_cast<VARTYPE>(VT_DISPATCH) : type;
    }

    bool takesVariant(UINT i) const {
        const ELEMDESC* const declared = parameter(i);
        return declared && declared->tdesc.vt == VT_VARIANT;
    }

    /// The interface that argument `i` is declared as; IID_NULL when it is no object.
    IID interfaceOf(UINT i) const {
        const ELEMDESC* const declared = parameter(i);
        Com<ITypeInfo> type;
        TYPEATTR* attributes = nullptr;
        if (!declared || declared->tdesc.vt != VT_PTR || declared->tdesc.lptdesc->vt != VT_USERDEFINED ||
            FAILED(info_.GetRefTypeInfo(declared->tdesc.lptdesc->hreftype, type.put())) ||
            FAILED(type->GetTypeAttr(&attributes)))
            return IID_NULL;
        const IID id = attributes->guid;
        type->ReleaseTypeAttr(attributes);
        return id;
    }

  private:
    const ELEMDESC* parameter(UINT i) const {
        const bool isOne = description_ && i < static_cast<UINT>(description_->cParams);
        return isOne ? &description_->lprgelemdescParam[i] : nullptr;
    }

    ITypeInfo& info_;
    FUNCDESC* description_ = nullptr;
};

/// What stands for an argument that the caller does not give.
VARIANT leftOut() {
    VARIANT argument{};
    argument.vt = VT_ERROR;
    argument.scode = DISP_E_PARAMNOTFOUND;
    return argument;
}

/// The reference to a stand-in's content that the type library's own call accepts.
VARIANT referenceTo(VARIANT& content) {
    VARIANT reference{};
    reference.vt = static_cast<VARTYPE>(VT_BYREF | content.vt);
    reference.byref = &content.byref;
    return reference;
}

/// Makes the content of a stand-in one of the declared type.
HRESULT convert(VARIANT& content, VARTYPE type) {
    if (content.vt == VT_ERROR) return DISP_E_PARAMNOTOPTIONAL;
    if (type == VT_DISPATCH && (content.vt == VT_EMPTY || content.vt == VT_NULL)) {
        content.vt = VT_DISPATCH;
        content.pdispVal = nullptr;
        return S_OK;
    }
    const HRESULT changed = VariantChangeType(&content, &content, 0, type);
    const bool speaks = SUCCEEDED(changed) || changed == DISP_E_OVERFLOW || changed == E_OUTOFMEMORY;
    return speaks ? changed : DISP_E_TYPEMISMATCH;
}

/// Replaces one argument, for which the member declares a reference to `type`, by a reference to an owned
/// copy unless it is just such a reference.
HRESULT substitute(VARIANT& argument, VARTYPE type, std::deque<Stand>& stands) {
    VARIANT* const content = contentOf(argument);
    if (content->vt == (VT_BYREF | type)) {
        argument = *content;
        return S_OK;
    }
    // A value, and a variable of some other type, cannot take the result.
    VARIANT* const caller = content == &argument || (content->vt & VT_BYREF) ? nullptr : content;
    stands.push_back({given(*content), caller});
    VARIANT& copy = const_cast<VARIANT&>(stands.back().value.raw());
    const HRESULT converted = convert(copy, type);
    argument = referenceTo(copy);
    return converted;
}

/// The arguments as the member declares them, the first one last. Named ones go to their places here, since
/// not every platform's own call brings them there unharmed; the one that a put assigns stays named. What is
/// left out in between is marked so.
HRESULT inPlaces(const DISPPARAMS& parameters, std::vector<VARIANT>& places) {
    const UINT named = parameters.cNamedArgs;
    if ((parameters.cArgs && !parameters.rgvarg) || (named && !parameters.rgdispidNamedArgs))
        return E_INVALIDARG;
    if (named > parameters.cArgs) return DISP_E_BADPARAMCOUNT;
    const bool isPut = named == 1 && parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    places.assign(parameters.rgvarg + (isPut ? 0 : named), parameters.rgvarg + parameters.cArgs);
    if (isPut) return S_OK;
    std::reverse(places.begin(), places.end());
    for (UINT i = 0; i < named; ++i) {
        constexpr size_t kMost = 64;
        const auto place = static_cast<size_t>(parameters.rgdispidNamedArgs[i]);
        if (place >= kMost) return DISP_E_PARAMNOTFOUND;
        while (places.size() <= place) places.push_back(leftOut());
        places[place] = parameters.rgvarg[i];
    }
    std::reverse(places.begin(), places.end());
    return S_OK;
}

/// Replaces an argument that the member only reads by its value, and an object by the interface that the
/// member takes: what the platform's own call does with references and with objects that are something else
/// is not the same everywhere, and not always right.
void take(VARIANT& argument, const IID& wanted, std::deque<Stand>& stands) {
    const VARIANT& content = *contentOf(argument);
    const VARTYPE type = content.vt & ~VT_BYREF;
    const bool isObject = wanted != IID_NULL && (type == VT_DISPATCH || type == VT_UNKNOWN);
    if (!(argument.vt & VT_BYREF) && !isObject) return;
    Variant value = given(argument);
    if (isObject && !value.isNothing()) {
        // The variant is a late-bound object's, but the one that calls the member takes its pointer as it is.
        const auto object = Com<IUnknown>::share(value.raw().punkVal);
        IDispatch* face = nullptr;
        if (FAILED(object->QueryInterface(wanted, reinterpret_cast<void**>(&face))))
            throw runtimeFault(fault::kTypeMismatch);
        value = Variant(Com<IDispatch>::adopt(face));
    }
    argument = stands.emplace_back(Stand{std::move(value), nullptr}).value.raw();
}

HRESULT substituteAll(const Function& function, std::vector<VARIANT>& arguments, std::deque<Stand>& stands) {
    const auto count = static_cast<UINT>(arguments.size());
    for (UINT i = 0; i < count; ++i) {
        VARIANT& argument = arguments[count - 1 - i];
        if (!contentOf(argument)) return E_POINTER;
        const VARTYPE type = function.referenced(i);
        if (type == VT_EMPTY && !function.takesVariant(i)) take(argument, function.interfaceOf(i), stands);
        if (type == VT_EMPTY || type == VT_VARIANT) continue;
        if (const HRESULT ready = substitute(argument, type, stands); FAILED(ready)) return ready;
    }
    return S_OK;
}

void giveBack(std::deque<Stand>& stands) {
    for (Stand& stand : stands)
        if (stand.caller) {
            VariantClear(stand.caller);
            *stand.caller = stand.value.detach();
        }
}

}  // namespace

HRESULT lateCall(void* instance, ITypeInfo& info, DISPID member, WORD flags, DISPPARAMS& parameters,
                 VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    try {
        const Function function(info, member, flags);
        std::vector<VARIANT> arguments;
        std::deque<Stand> stands;
        HRESULT ready = inPlaces(parameters, arguments);
        if (SUCCEEDED(ready)) ready = substituteAll(function, arguments, stands);
        if (FAILED(ready)) return ready;
        DISPID put = DISPID_PROPERTYPUT;
        const UINT named = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) ? 1 : 0;
        DISPPARAMS substituted{arguments.data(), named ? &put : nullptr, static_cast<UINT>(arguments.size()),
                               named};
        const HRESULT answer =
            info.Invoke(instance, member, flags, &substituted, result, exception, badArgument);
        if (SUCCEEDED(answer)) giveBack(stands);
        return answer;
    } catch (const Fault&) {
        return DISP_E_TYPEMISMATCH;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace zelbar
