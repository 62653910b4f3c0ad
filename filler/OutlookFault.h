#pragma once

#include <string>

#include "automation/Fault.h"

namespace filler {

/// What a fault of Outlook is about.
enum class FaultScope {
    Object,   ///< This folder or item alone: the rest can still be read.
    Gone,     ///< This folder or item alone, because it does not exist any more.
    Outlook,  ///< Outlook itself: busy, closed, out of memory, a store that does not open.
};

FaultScope scopeOf(const zelbar::Fault& fault);

/// The reason as a user understands it: ours for the faults that users meet, else what Outlook says.
std::wstring explain(const zelbar::Fault& fault);

}  // namespace filler
