#pragma once

namespace filler {

/// The registry value by which a starting driver sees that the cache is being written, and waits. Beside it
/// stands which process has raised it, so that the next run can tell a flag that a killed one has left.
class SynchroFlag {
  public:
    /// Takes the flag down when a run that is no more has left it. Throws a Failure while another run writes.
    SynchroFlag();
    /// Takes the flag down if this object has raised it.
    ~SynchroFlag();
    SynchroFlag(const SynchroFlag&) = delete;
    SynchroFlag& operator=(const SynchroFlag&) = delete;

    /// Raises the flag, unless another program has: that one takes it down itself. Throws a Failure when the
    /// registry refuses or another run writes.
    void raise();

    /// Whether the flag is up and another program's.
    bool isOthers() const;

  private:
    bool raised_ = false;
};

}  // namespace filler
