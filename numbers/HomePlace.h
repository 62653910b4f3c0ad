#pragma once

#include <string>

#include "numbers/Place.h"

namespace numbers {

/// What somebody has said about the place, as texts; empty where nothing was said.
struct PlaceWords {
    std::wstring country;
    std::wstring areaCode;
    std::wstring outsideLine;
    std::wstring withoutPrefix;
};

/// A place, and who said so.
struct HomePlace {
    Place place;
    std::wstring source;  ///< "the options", "the settings", "Windows' dialling location", "Windows' region".
};

/// Said in one line: "Germany's numbers" and where that comes from.
std::wstring described(const HomePlace& home);

/// What was said makes no place; `sentence` is for the user.
struct BadPlace {
    std::wstring sentence;
};

/// The place of this user's telephone: what `options` say, else the settings, else Windows' dialling
/// location, else the user's region. Nothing is known of the country when none of them has one. Throws
/// BadPlace.
HomePlace findHomePlace(const PlaceWords& options);

}  // namespace numbers
