#pragma once

#include "filler/AddressBook.h"
#include "filler/CacheFile.h"
#include "filler/Observer.h"
#include "filler/SynchroFlag.h"
#include "numbers/PresentedForms.h"

namespace filler {

/// What an update has changed.
struct CacheChange {
    long numberCount = 0;  ///< Numbers in the address book; the cache has more rows.
    long added = 0;
    long removed = 0;
    bool storesChanged = false;
    bool created = false;

    bool any() const { return created || storesChanged || added > 0 || removed > 0; }
};

/// Makes the cache equal to the address book, in one transaction and under the flag. A number's row as it
/// stands has the contact's name; those of its other forms have none, so that no search by name meets a
/// contact more often for them. Only rows that differ
/// are touched, and where none does nothing is written. Throws a Fault or a Failure, and the cache stays as
/// it was.
CacheChange updateCache(CacheFile& file, const AddressBook& book, const numbers::PresentedForms& forms,
                        SynchroFlag& flag, Observer& observer);

}  // namespace filler
