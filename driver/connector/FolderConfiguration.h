#pragma once

namespace zelbar {

/// True when the cache file exists and the first folder of the user's selection, if one is stored, can be
/// opened in Outlook. A failure is logged and is False.
bool isFolderConfigured() noexcept;

}  // namespace zelbar
