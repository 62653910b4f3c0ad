#pragma once

namespace filler {

/// Turns Ctrl+C, the closing of the window and the end of the session into a request to end the run in order.
/// A second Ctrl+C ends the program at once.
class Interrupt {
  public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    bool requested() const noexcept;
};

}  // namespace filler
