#pragma once

#include <windows.h>

#include <memory>

namespace zelbar {

class Gateway;
class OutgoingCalls;

/// Until when Outlook is asked, for all calls that are made while it lives: one for each thing that the
/// client or the user asks. Within another one the earlier end holds, so one of the same limit adds nothing.
/// Lives on the stack.
class Deadline {
  public:
    /// Gives the milliseconds, 0 for no end. Fewer than a hundred count as so many: what is over sooner does
    /// not need to ask.
    using Limit = DWORD (*)();

    Deadline(const Gateway& gateway, Limit limit);
    ~Deadline();
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;

    static constexpr ULONGLONG kNever = ~0ULL;

  private:
    friend class OutgoingCalls;
    friend class Untimed;

    // Asked by a message filter in the middle of a call.
    bool isOver(ULONGLONG now) noexcept;
    ULONGLONG end() noexcept;
    ULONGLONG ownEnd() noexcept;
    /// When the outermost one began.
    ULONGLONG begun() const { return outer_ ? outer_->begun() : begun_; }
    void postpone(ULONGLONG milliseconds);

    std::shared_ptr<OutgoingCalls> calls_;
    Deadline* outer_;
    ULONGLONG begun_;
    ULONGLONG end_ = kNever;
    Limit limit_;
    bool isRead_ = false;  ///< The limit has been asked, or an outer one's does.
};

/// Time that does not count: a person answers a window, or the client's messages are served. What is asked
/// meanwhile has deadlines of its own, and those outside end as much later as this has lasted.
class Untimed {
  public:
    explicit Untimed(const Gateway& gateway);
    explicit Untimed(OutgoingCalls& calls);
    ~Untimed();
    Untimed(const Untimed&) = delete;
    Untimed& operator=(const Untimed&) = delete;

  private:
    OutgoingCalls& calls_;
    Deadline* inForce_;
    ULONGLONG begun_;
};

}  // namespace zelbar
