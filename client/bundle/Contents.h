#pragma once

#include <functional>
#include <string>
#include <vector>

#include "client/bundle/ZipFile.h"

namespace pimcall::bundle {

/// What support needs to see of this computer, as files: versions, the doctor's report, the settings,
/// statistics of the tables, the logs. Masked, nothing in it tells a name, number, address, identifier or
/// user's folder. `tell` hears what is being done.
std::vector<Part> collect(bool isMasked, const std::function<void(const wchar_t*)>& tell);

}  // namespace pimcall::bundle
