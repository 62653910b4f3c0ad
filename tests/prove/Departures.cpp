#include "tests/prove/Departures.h"

namespace prove {

const char* nameOf(Kind kind) {
    constexpr const char* kNames[kKinds] = {"outlook",  "outlook-name", "outlook-item", "outlook-end", "dao",
                                            "dao-name", "dao-end",      "activation",   "registry",    "file",
                                            "process",  "memory",       "window",       "yield"};
    return kNames[static_cast<std::size_t>(kind)];
}

void Departures::watch(Kind kind, long number, bool lasts) {
    *this = {};
    watching_ = true;
    kind_ = kind;
    number_ = number;
    lasts_ = lasts;
}

bool Departures::leaves(Kind kind) noexcept {
    if (!watching_) return false;
    const long number = ++counts_[static_cast<std::size_t>(kind)];
    if (kind != kind_ || number_ == 0 || number < number_ || (number > number_ && !lasts_)) return false;
    reached_ = true;
    return true;
}

Departures& departures() {
    static Departures instance;
    return instance;
}

}  // namespace prove
