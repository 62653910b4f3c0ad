#pragma once

#include <string>
#include <vector>

#include "numbers/Place.h"

/// Spellings of telephone numbers as they stand in address books, and what telephone systems present.
namespace spellings {

struct Case {
    std::wstring home;  ///< The place as the table has it.
    numbers::Place place;
    std::wstring stored;
    std::vector<std::wstring> hits;    ///< Presented numbers that must find the contact.
    std::vector<std::wstring> misses;  ///< Presented numbers that must not.
};

std::vector<Case> all();

}  // namespace spellings
