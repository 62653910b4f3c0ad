#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// The present local date and time, to the second.
DATE currentDate() noexcept;

/// A date as the system converts it to text by default: the user's short date and long time, without the
/// time at midnight and without the date on day 0.
std::wstring dateText(DATE date);

}  // namespace zelbar
