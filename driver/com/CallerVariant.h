#pragma once

#include <windows.h>

#include <oaidl.h>

#include "automation/Variant.h"

namespace zelbar {

/// The variant behind the references to variants in which scripts wrap an argument. None when one of them, or
/// the reference behind them, leads nowhere, or when they do not end.
VARIANT* contentOf(VARIANT& argument) noexcept;

/// A copy of what a caller's variant holds, references followed: the one way in which a variant of the client
/// becomes one of the driver. Throws a type mismatch for a reference to nothing and an array that is none.
Variant given(VARIANT& argument);

/// The same for an optional argument; empty when it is left out.
Variant givenIfAny(VARIANT& argument);

}  // namespace zelbar
