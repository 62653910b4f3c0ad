#pragma once

#include <windows.h>

#include <oaidl.h>

#include "automation/Com.h"

namespace zelbar {

/// The type library embedded in this module; loaded once, independent of the registry. None when the module
/// does not carry it.
Com<ITypeLib> embeddedTypeLibrary();

/// The description of one of its interfaces or classes; none when the library does not have it. Kept once
/// read.
Com<ITypeInfo> typeInfoOf(const GUID& id);

}  // namespace zelbar
