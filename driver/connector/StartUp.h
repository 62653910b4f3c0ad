#pragma once

namespace zelbar {

struct DriverState;

/// Brings the driver up: log, language, Outlook's first answer, the cache, the actions. Whatever fails is
/// logged and left out; the rest goes on.
void startUp(DriverState& state) noexcept;

/// Closes what start-up and the calls since have opened. Whatever fails is logged; the rest goes on.
void shutDown(DriverState& state) noexcept;

}  // namespace zelbar
