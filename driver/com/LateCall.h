#pragma once

#include <windows.h>

#include <oaidl.h>

namespace zelbar {

/// IDispatch::Invoke for a dual interface, through its type description. Scripts hand over by-reference
/// arguments as variants, and values where a reference is declared; both are taken, and what the member
/// writes goes back to where the caller can see it: into the variant, or nowhere for a value.
/// `instance` is the interface that `info` describes. Never throws.
HRESULT lateCall(void* instance, ITypeInfo& info, DISPID member, WORD flags, DISPPARAMS& parameters,
                 VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept;

}  // namespace zelbar
