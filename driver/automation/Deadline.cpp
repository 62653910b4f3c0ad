#include "automation/Deadline.h"

#include <algorithm>
#include <utility>

#include "automation/Gateway.h"
#include "automation/OutgoingCalls.h"

namespace zelbar {

namespace {

constexpr ULONGLONG kLeast = 100;

}  // namespace

Deadline::Deadline(const Gateway& gateway, Limit limit)
    : calls_(gateway.calls()),
      outer_(std::exchange(calls_->inForce_, this)),
      begun_(calls_->clock_.now()),
      limit_(limit) {
    for (const Deadline* around = outer_; around && !isRead_; around = around->outer_)
        isRead_ = around->limit_ == limit;
}

Deadline::~Deadline() {
    calls_->inForce_ = outer_;
}

bool Deadline::isOver(ULONGLONG now) noexcept {
    if ((isRead_ || now - begun_ >= kLeast) && now >= ownEnd()) return true;
    return outer_ && outer_->isOver(now);
}

ULONGLONG Deadline::end() noexcept {
    return outer_ ? std::min(ownEnd(), outer_->end()) : ownEnd();
}

ULONGLONG Deadline::ownEnd() noexcept {
    if (isRead_) return end_;
    try {
        if (const DWORD milliseconds = limit_()) end_ = begun_ + std::max<ULONGLONG>(milliseconds, kLeast);
        isRead_ = true;
    } catch (...) {
        // Without memory for it: it is asked again.
    }
    return end_;
}

void Deadline::postpone(ULONGLONG milliseconds) {
    begun_ += milliseconds;
    if (end_ != kNever) end_ += milliseconds;
    if (outer_) outer_->postpone(milliseconds);
}

Untimed::Untimed(const Gateway& gateway) : Untimed(*gateway.calls()) {}

Untimed::Untimed(OutgoingCalls& calls)
    : calls_(calls), inForce_(std::exchange(calls.inForce_, nullptr)), begun_(calls.clock_.now()) {}

Untimed::~Untimed() {
    calls_.inForce_ = inForce_;
    if (inForce_) inForce_->postpone(calls_.clock_.now() - begun_);
}

}  // namespace zelbar
