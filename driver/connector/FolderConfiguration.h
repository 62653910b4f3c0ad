#pragma once

#include "core/ContactCache.h"
#include "core/OutlookConnection.h"
#include "support/FLog.h"

namespace zelbar {

/// True when the cache file exists and the first folder of the user's selection, if one is stored, can be
/// opened in Outlook. A failure is logged and is False.
bool isFolderConfigured(FLog& log, OutlookConnection& connection, const ContactCache& cache) noexcept;

}  // namespace zelbar
