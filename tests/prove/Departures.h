#pragma once

#include <array>
#include <cstddef>

namespace prove {

/// What can leave the module under test.
enum class Kind {
    Outlook,
    OutlookName,  ///< a look-up of a member's number
    OutlookItem,  ///< a question for an item; it is counted as a call as well
    OutlookEnd,   ///< the last release of an object
    Dao,
    DaoName,
    DaoEnd,
    Activation,
    Registry,
    File,
    Process,
    Memory,
    Window,
    Yield,  ///< waiting messages are served, or a box is shown
    kCount
};
inline constexpr std::size_t kKinds = static_cast<std::size_t>(Kind::kCount);
inline constexpr const char* kNames[kKinds] = {
    "outlook",    "outlook-name", "outlook-item", "outlook-end", "dao",    "dao-name", "dao-end",
    "activation", "registry",     "file",         "process",     "memory", "window",   "yield"};

/// All that leaves the module while it is watched, counted by kind. One of these calls meets the event that a
/// run is about: it fails, or something else happens meanwhile.
class Departures {
  public:
    /// Counts from now on. The event happens at call `number` (from 1; 0 never) and, when it lasts, at all
    /// later ones of that kind.
    void watch(Kind kind, long number, bool lasts = false) {
        *this = {};
        watching_ = true;
        kind_ = kind;
        number_ = number;
        lasts_ = lasts;
    }
    void ignore() { watching_ = false; }

    /// One call leaves; true when the event is to happen at it.
    bool leaves(Kind kind) noexcept {
        if (!watching_) return false;
        const long number = ++counts_[static_cast<std::size_t>(kind)];
        const bool happens = number == number_ || (lasts_ && number > number_);
        if (kind != kind_ || number_ == 0 || !happens) return false;
        reached_ = true;
        return true;
    }

    long count(Kind kind) const { return counts_[static_cast<std::size_t>(kind)]; }
    bool reached() const { return reached_; }

  private:
    bool watching_ = false;
    Kind kind_ = Kind::Outlook;
    long number_ = 0;
    bool lasts_ = false;
    bool reached_ = false;
    std::array<long, kKinds> counts_{};
};

inline Departures departures;

}  // namespace prove
