#pragma once

namespace filler {

/// The registry value by which a starting driver sees that the cache is being written, and waits.
class SynchroFlag {
  public:
    SynchroFlag() = default;
    /// Takes the flag down, also one that a run left which was killed.
    ~SynchroFlag();
    SynchroFlag(const SynchroFlag&) = delete;
    SynchroFlag& operator=(const SynchroFlag&) = delete;

    /// Throws a Failure when the registry refuses.
    void raise();
};

}  // namespace filler
