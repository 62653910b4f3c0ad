#pragma once

#include <string>

namespace numbers {

/// The dialling location that is set in Windows.
struct DiallingLocation {
    int callingCode = 0;  ///< 0 when none is set.
    std::wstring areaCode;
};

/// Read from the registry: asking the telephony service could make a location where there is none.
DiallingLocation diallingLocation();

/// The country that the user has chosen for Windows, two letters; empty for none.
std::wstring userRegion();

}  // namespace numbers
