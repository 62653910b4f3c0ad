#pragma once

#include <array>

#include "client/Arguments.h"
#include "client/Writer.h"
#include "numbers/HomePlace.h"

namespace pimcall {

inline constexpr std::array kPlaceOptions = {Option{L"--country", L"LETTERS"}, Option{L"--area", L"DIGITS"},
                                             Option{L"--outside-line", L"DIGITS"},
                                             Option{L"--without-prefix", L"KIND"}};

/// Where the user is, as the options say, else the settings, else Windows. Throws `UsageError` when that is
/// no place.
numbers::HomePlace homePlace(const Arguments& arguments);

/// Tells the user when a caller's number looks as if the telephone system presented it otherwise than the
/// settings say.
void noteRemark(Writer& notes, const std::wstring& number);

}  // namespace pimcall
