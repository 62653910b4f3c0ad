#pragma once

#include <windows.h>

#include <unknwn.h>

#include "automation/Com.h"

namespace zelbar {

/// The class object of a creatable class. `create` makes a new object and may throw.
Com<IClassFactory> makeClassFactory(Com<IUnknown> (*create)());

}  // namespace zelbar
