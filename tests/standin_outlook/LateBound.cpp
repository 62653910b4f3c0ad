#include "tests/standin_outlook/LateBound.h"

#include <gtest/gtest.h>

#include <vector>

namespace late {
namespace {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

std::wstring taken(BSTR text) {
    const _bstr_t owner(text, false);
    return text ? std::wstring(text, SysStringLen(text)) : L"";
}

}  // namespace

HRESULT Object::lookUp(const wchar_t* name, DISPID& id) const {
    auto* text = const_cast<LPOLESTR>(name);
    return target_->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
}

Outcome Object::invoke(const wchar_t* name, WORD flags, std::initializer_list<Value> arguments) const {
    DISPID id = DISPID_UNKNOWN;
    Outcome outcome;
    outcome.result = lookUp(name, id);
    return FAILED(outcome.result) ? outcome : invokeNumber(id, flags, arguments);
}

Outcome Object::invokeNumber(DISPID id, WORD flags, std::initializer_list<Value> arguments) const {
    std::vector<VARIANT> reversed;
    for (auto argument = std::rbegin(arguments); argument != std::rend(arguments); ++argument) {
        reversed.push_back(*argument);
    }
    DISPID assigned = DISPID_PROPERTYPUT;
    const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{reversed.data(), put ? &assigned : nullptr, static_cast<UINT>(reversed.size()),
                          put ? 1U : 0U};
    EXCEPINFO exception{};
    Outcome outcome;
    outcome.result = target_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                     put ? nullptr : &outcome.value, &exception, nullptr);
    outcome.number = exception.scode;
    outcome.source = taken(exception.bstrSource);
    outcome.description = taken(exception.bstrDescription);
    taken(exception.bstrHelpFile);
    return outcome;
}

Outcome Object::attempt(const wchar_t* name, std::initializer_list<Value> arguments) const {
    return invoke(name, kRead, arguments);
}

Value Object::get(const wchar_t* name, std::initializer_list<Value> arguments) const {
    Outcome outcome = attempt(name, arguments);
    EXPECT_EQ(numberOf(outcome), S_OK) << std::hex << numberOf(outcome) << " reading " << name;
    return outcome.value;
}

std::wstring Object::text(const wchar_t* name, std::initializer_list<Value> arguments) const {
    return standin::toText(get(name, arguments));
}

long Object::number(const wchar_t* name, std::initializer_list<Value> arguments) const {
    return standin::toLong(get(name, arguments));
}

Object Object::object(const wchar_t* name, std::initializer_list<Value> arguments) const {
    const Value value = get(name, arguments);
    EXPECT_EQ(value.vt, VT_DISPATCH) << name;
    return value.vt == VT_DISPATCH ? Object(Ref<IDispatch>(value.pdispVal)) : Object();
}

void Object::call(const wchar_t* name, std::initializer_list<Value> arguments) const {
    get(name, arguments);
}

Value Object::value() const {
    return Value(target_.Get());
}

Object create(const CLSID& clsid, DWORD context) {
    Ref<IDispatch> object;
    EXPECT_EQ(CoCreateInstance(clsid, nullptr, context, IID_PPV_ARGS(&object)), S_OK);
    return Object(object);
}

HRESULT numberOf(const Outcome& outcome) {
    return outcome.result == DISP_E_EXCEPTION ? outcome.number : outcome.result;
}

}  // namespace late
