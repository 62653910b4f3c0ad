#include "tests/com/LateClient.h"

#include <algorithm>

namespace zelbar {

namespace {

VARIANT ofType(int type) {
    VARIANT result{};
    result.vt = static_cast<VARTYPE>(type);
    return result;
}

}  // namespace

LateAnswer late(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments, WORD kind,
                const std::vector<const wchar_t*>& named) {
    std::vector<LPOLESTR> names{const_cast<LPOLESTR>(name)};
    for (const wchar_t* parameter : named) names.push_back(const_cast<LPOLESTR>(parameter));
    std::vector<DISPID> ids(names.size());
    LateAnswer answer;
    answer.result = object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                         LOCALE_USER_DEFAULT, ids.data());
    if (FAILED(answer.result)) return answer;
    const DISPID member = ids.front();
    ids.erase(ids.begin());
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) ids.push_back(DISPID_PROPERTYPUT);
    std::reverse(ids.begin(), ids.end());
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), ids.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(ids.size())};
    answer.result = object.Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                  answer.value.put(), nullptr, nullptr);
    return answer;
}

VARIANT lent(long value) {
    VARIANT result = ofType(VT_I4);
    result.lVal = value;
    return result;
}
VARIANT lent(short value) {
    VARIANT result = ofType(VT_I2);
    result.iVal = value;
    return result;
}
VARIANT lent(double value) {
    VARIANT result = ofType(VT_R8);
    result.dblVal = value;
    return result;
}
VARIANT lent(BSTR value) {
    VARIANT result = ofType(VT_BSTR);
    result.bstrVal = value;
    return result;
}
VARIANT lent(IDispatch* value) {
    VARIANT result = ofType(VT_DISPATCH);
    result.pdispVal = value;
    return result;
}
VARIANT lent(VARENUM type) {
    VARIANT result = ofType(type);
    if (type == VT_ERROR) result.scode = DISP_E_PARAMNOTFOUND;
    return result;
}

VARIANT referenceTo(long& variable) {
    VARIANT result = ofType(VT_BYREF | VT_I4);
    result.plVal = &variable;
    return result;
}
VARIANT referenceTo(short& variable) {
    VARIANT result = ofType(VT_BYREF | VT_I2);
    result.piVal = &variable;
    return result;
}
VARIANT referenceTo(IDispatch*& variable) {
    VARIANT result = ofType(VT_BYREF | VT_DISPATCH);
    result.ppdispVal = &variable;
    return result;
}
VARIANT referenceTo(IUnknown*& variable) {
    VARIANT result = ofType(VT_BYREF | VT_UNKNOWN);
    result.ppunkVal = &variable;
    return result;
}
VARIANT referenceTo(VARIANT& variable) {
    VARIANT result = ofType(VT_BYREF | VT_VARIANT);
    result.pvarVal = &variable;
    return result;
}

}  // namespace zelbar
