#pragma once

#include <string>

#include "filler/CacheUpdate.h"
#include "filler/Observer.h"
#include "filler/ReadWay.h"
#include "numbers/Place.h"

namespace filler {

/// What a run has done.
struct FillResult {
    long folderCount = 0;
    long contactCount = 0;
    long unreadCount = 0;
    CacheChange change;
    ChosenWay way;

    bool isComplete() const { return unreadCount == 0; }
};

/// Reads Outlook and brings the cache up to date; COM must be there. Where the data folder is the user's own,
/// photos of contacts that a complete cache does not hold are deleted. Throws a Failure, and the cache stays
/// as it was. `place` says how the user's telephone system presents numbers.
/// `asked` is the way in which Outlook is to be read; none leaves the choice here.
FillResult fillCache(Observer& observer, const numbers::Place& place, std::optional<ReadWay> asked = {});

/// The result as sentences, one a line.
std::wstring describe(const FillResult& result);

}  // namespace filler
