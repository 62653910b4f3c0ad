#pragma once

#include <optional>
#include <string>
#include <vector>

#include "filler/AddressBook.h"
#include "filler/CacheFile.h"
#include "filler/CacheTable.h"
#include "filler/Observer.h"
#include "filler/StoreKeys.h"
#include "numbers/Place.h"

namespace filler {

// What a fill leaves in the cache for the next one: digests of all that its rows follow from, and of the
// rows. Where both are still right the forms of the numbers, which take most of the time, need not be worked
// out again. The driver never looks at it.

/// The digest of what rows follow from: the contacts, their stores' keys, the place, and this program, whose
/// rules may be others in the next version.
std::wstring sourcesMark(const AddressBook& book, const std::vector<StoreKey>& keys,
                         const numbers::Place& place);

/// The digest of the rows in the cache. Throws a Fault, or a Failure when the observer ends the run.
std::wstring rowsMark(const zelbar::Object& database, Observer& observer);

/// The mark in the cache; empty when there is none.
std::wstring storedMark(const CacheFile& file);
/// Puts the mark in the place of the one that is there; an empty one only removes that. Throws a Fault.
void storeMark(const CacheFile& file, const std::wstring& mark);

}  // namespace filler
