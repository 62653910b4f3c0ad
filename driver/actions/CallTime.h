#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// The user's short form of a date's day, and of its time.
std::wstring dayText(DATE date);
std::wstring timeText(DATE date);

/// The date and time that a text stands for in the user's locale. Throws when it is none.
DATE dateFromText(const std::wstring& text);

}  // namespace zelbar
