#pragma once

#include <functional>
#include <utility>

#include "automation/Fault.h"

namespace zelbar {

/// For routines that go on after errors: each statement that may fail is one attempt, and the next one runs
/// whatever became of it. The latest fault is kept until it is cleared.
class Attempts {
  public:
    Attempts() = default;
    /// `report` hears of every fault; it must not throw.
    explicit Attempts(std::function<void(const Fault&)> report) : report_(std::move(report)) {}

    /// Runs a statement. False when it failed.
    template <class Statement>
    bool operator()(Statement&& statement) noexcept {
        try {
            statement();
            return true;
        } catch (...) {
            last_ = caughtFault();
        }
        if (report_) report_(last_);
        return false;
    }

    /// An assignment: the target keeps its value when reading the new one fails.
    template <class Target, class Read>
    bool into(Target& target, Read&& read) noexcept {
        return (*this)([&] { target = read(); });
    }

    const Fault& last() const { return last_; }

  private:
    std::function<void(const Fault&)> report_;
    Fault last_;
};

}  // namespace zelbar
