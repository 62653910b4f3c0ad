#pragma once

namespace zelbar {

/// Lets the thread's waiting messages run, as many as are there now; a flood of them cannot hold the caller.
void yieldToMessages() noexcept;

}  // namespace zelbar
