#pragma once

#include <string>

#include "automation/Fault.h"

namespace filler {

/// Whether the same attempt may succeed a moment later: Outlook is just leaving, starting or busy.
bool mayPass(const zelbar::Fault& fault);

/// The reason as a user understands it: ours for the faults that users meet, else what Outlook says.
std::wstring explain(const zelbar::Fault& fault);

}  // namespace filler
