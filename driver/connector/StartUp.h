#pragma once

namespace zelbar {

/// Brings the driver up: log, language, Outlook's first answer, the cache, the actions. Whatever fails is
/// logged and left out; the rest goes on.
void startUp() noexcept;

/// Closes what start-up and the calls since have opened. Whatever fails is logged; the rest goes on.
void shutDown() noexcept;

}  // namespace zelbar
