#pragma once

#include <string>

#include "numbers/Place.h"

namespace numbers {

/// A sentence for the user when a caller's number is one that the system at this place does not present, but
/// would if one of the place's settings were another; else empty, also for what is no telephone number.
std::wstring presentedOtherwise(const Place& place, const std::wstring& number);

}  // namespace numbers
