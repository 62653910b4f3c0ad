#pragma once

#include <windows.h>

#include <oaidl.h>

#include <vector>

#include "automation/Com.h"
#include "automation/Variant.h"

namespace zelbar {

/// What For Each walks over: the values as they are now, in their order.
Com<IUnknown> makeEnumerator(std::vector<Variant> values);

}  // namespace zelbar
