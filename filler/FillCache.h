#pragma once

#include <string>

#include "filler/CacheUpdate.h"
#include "filler/Observer.h"

namespace filler {

/// What a run has done.
struct FillResult {
    long folderCount = 0;
    long contactCount = 0;
    long unreadCount = 0;
    CacheChange change;
};

/// Full path of the cache; makes its folder.
std::wstring cachePath();

/// Reads Outlook and brings the cache up to date; COM must be there. Throws a Failure, and the cache stays as
/// it was.
FillResult fillCache(Observer& observer);

/// The result as sentences, one a line.
std::wstring describe(const FillResult& result);

}  // namespace filler
