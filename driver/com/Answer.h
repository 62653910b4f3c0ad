#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>

#include "automation/Bstr.h"
#include "automation/Com.h"
#include "automation/Fault.h"
#include "automation/Variant.h"
#include "com/ModuleState.h"

/// What stands between a client's call and the procedure that answers it. Every member of every interface
/// goes through `answer` or `perform`: nothing thrown behind them reaches the client.
namespace zelbar::border {

inline void store(BSTR* out, const std::wstring& value) {
    *out = Bstr(value).detach();
}
inline void store(VARIANT_BOOL* out, bool value) {
    *out = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void store(short* out, short value) {
    *out = value;
}
inline void store(long* out, long value) {
    *out = value;
}
inline void store(VARIANT* out, Variant value) {
    *out = value.detach();
}
template <class Interface, class Object>
void store(Interface** out, Com<Object> value) {
    *out = value.detach();
}

inline void trapped(const wchar_t* prefix) noexcept {
    moduleState().traceTrapped(prefix, caughtFault());
}

/// A member with a result: the neutral value first, then the body's, which fails to the neutral value. The
/// object is kept alive meanwhile, since a member that serves messages may see its client release it.
template <class Self, class Result, class Body>
HRESULT answer(Self* self, const wchar_t* prefix, Result* out, Body&& body) noexcept {
    if (!out) return E_POINTER;
    *out = Result{};
    const auto keep = Com<Self>::share(self);
    try {
        store(out, body());
    } catch (...) {
        trapped(prefix);
    }
    return S_OK;
}

/// A member without a result.
template <class Self, class Body>
HRESULT perform(Self* self, const wchar_t* prefix, Body&& body) noexcept {
    const auto keep = Com<Self>::share(self);
    try {
        body();
    } catch (...) {
        trapped(prefix);
    }
    return S_OK;
}

}  // namespace zelbar::border
