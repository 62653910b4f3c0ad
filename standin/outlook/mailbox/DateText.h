#pragma once

#include "standin/common/Value.h"

namespace standin::outlook {

// What Outlook shows for a date that is not set: 1 January 4501.
inline constexpr Date kNoDate{949998.0};

// Dates are kept as decimal day counts, exactly.
std::wstring textFromDate(Date date);
Date dateFromText(const std::wstring& text);
// Whole numbers without a decimal point; reads back to the same number.
std::wstring textFromNumber(double number);

// The local time now, without fractions of a second.
Date now();
// Midnight of a calendar day.
Date dayOf(int year, int month, int day);

}  // namespace standin::outlook
