#pragma once

#include <string>

#include "automation/Fault.h"

namespace filler {

/// The reason as a user understands it: ours for the faults that users meet, else what Outlook says.
std::wstring explain(const zelbar::Fault& fault);

}  // namespace filler
