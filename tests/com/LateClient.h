#pragma once

#include <windows.h>

#include <oaidl.h>

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <vector>

#include "automation/Com.h"
#include "automation/Variant.h"

/// Calls as scripts and late-bound programs make them, with raw arguments that the caller goes on owning.
namespace zelbar {

struct LateAnswer {
    HRESULT result = E_FAIL;
    Variant value;
};

inline constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

/// By name. The arguments in the order in which they are written; the last ones may be `named`.
inline LateAnswer late(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments = {},
                       WORD kind = kRead, const std::vector<const wchar_t*>& named = {}) {
    std::vector<LPOLESTR> names{const_cast<LPOLESTR>(name)};
    for (const wchar_t* parameter : named) names.push_back(const_cast<LPOLESTR>(parameter));
    std::vector<DISPID> ids(names.size());
    LateAnswer answer;
    answer.result =
        object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), 0, ids.data());
    if (FAILED(answer.result)) return answer;
    const DISPID member = ids.front();
    ids.erase(ids.begin());
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) ids.push_back(DISPID_PROPERTYPUT);
    std::reverse(ids.begin(), ids.end());
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), ids.data(), static_cast<UINT>(arguments.size()),
                          static_cast<UINT>(ids.size())};
    answer.result =
        object.Invoke(member, IID_NULL, 0, kind, &parameters, answer.value.put(), nullptr, nullptr);
    return answer;
}

/// How an argument of a type is marked.
template <class T>
constexpr VARTYPE typeOf() {
    if constexpr (std::is_same_v<T, long>) return VT_I4;
    if constexpr (std::is_same_v<T, short>) return VT_I2;
    if constexpr (std::is_same_v<T, double>) return VT_R8;
    if constexpr (std::is_same_v<T, BSTR>) return VT_BSTR;
    if constexpr (std::is_convertible_v<T, IDispatch*>) return VT_DISPATCH;
    if constexpr (std::is_same_v<T, IUnknown*>) return VT_UNKNOWN;
    if constexpr (std::is_same_v<T, VARIANT>) return VT_VARIANT;
    if constexpr (std::is_same_v<T, SAFEARRAY*>) return VT_ARRAY | VT_VARIANT;
}

/// An argument by value; nothing is added to what it holds.
template <class T>
VARIANT lent(T value) {
    VARIANT result{};
    result.vt = typeOf<T>();
    std::memcpy(&result.llVal, &value, sizeof value);
    return result;
}
/// Empty, Null, or left out.
inline VARIANT lent(VARENUM type) {
    VARIANT result{};
    result.vt = static_cast<VARTYPE>(type);
    if (type == VT_ERROR) result.scode = DISP_E_PARAMNOTFOUND;
    return result;
}

/// A reference to the caller's variable.
template <class T>
VARIANT referenceTo(T& variable) {
    VARIANT result{};
    result.vt = static_cast<VARTYPE>(VT_BYREF | typeOf<T>());
    result.byref = &variable;
    return result;
}
/// A reference that leads nowhere.
template <class T>
VARIANT nowhere() {
    VARIANT result{};
    result.vt = static_cast<VARTYPE>(VT_BYREF | typeOf<T>());
    return result;
}

}  // namespace zelbar
