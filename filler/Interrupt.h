#pragma once

namespace filler {

/// Turns Ctrl+C, the closing of the window and the end of the session into a request to end the run in order.
/// A run that only reads and does not end within a moment, because Outlook does not answer, is ended with the
/// program. A second Ctrl+C ends the program at once.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool requested() const noexcept;

    /// From now on there is something that only the run itself can take back.
    void changesBegin() noexcept;
};

}  // namespace filler
