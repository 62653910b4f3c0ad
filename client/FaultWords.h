#pragma once

#include <string>

#include "automation/Fault.h"

namespace pimcall {

/// A fault as a user understands it, with its number: "it is busy, perhaps with an open dialog (0x80010001)".
/// Without a full stop.
std::wstring inWords(const zelbar::Fault& fault);

/// The fault's number alone, as it is looked up: "0x8004010F", small ones as "429".
std::wstring numberText(const zelbar::Fault& fault);

}  // namespace pimcall
