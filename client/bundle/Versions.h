#pragma once

#include <string>

#include "client/doctor/Machine.h"

namespace pimcall::bundle {

/// Versions of everything that takes part, one a line. Nothing in it is anybody's.
std::wstring versionsText(const doctor::Machine& machine);

}  // namespace pimcall::bundle
