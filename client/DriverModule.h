#pragma once

#include <string>

#include "support/Module.h"

namespace pimcall {

/// The driver's module as it is registered, for what depends on where it lies; this program's own folder
/// where it is not.
zelbar::Module driverModule();

struct DataFolder {
    std::wstring path;
    bool isPerUser = false;
};

/// The folder where the driver keeps its data; nothing is made.
DataFolder dataFolder();

}  // namespace pimcall
