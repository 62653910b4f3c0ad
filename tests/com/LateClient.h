#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>
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
LateAnswer late(IDispatch& object, const wchar_t* name, std::vector<VARIANT> arguments = {},
                WORD kind = kRead, const std::vector<const wchar_t*>& named = {});

/// Arguments by value; nothing is added to what they hold.
VARIANT lent(long value);
VARIANT lent(short value);
VARIANT lent(double value);
VARIANT lent(BSTR value);
VARIANT lent(IDispatch* value);
VARIANT lent(VARENUM type);  ///< Empty, Null, or left out.

/// References to the caller's variables.
VARIANT referenceTo(long& variable);
VARIANT referenceTo(short& variable);
VARIANT referenceTo(IDispatch*& variable);
VARIANT referenceTo(IUnknown*& variable);
VARIANT referenceTo(VARIANT& variable);

}  // namespace zelbar
