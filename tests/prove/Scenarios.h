#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/prove/Client.h"

namespace prove {

/// What a client does, once with something going wrong in the middle of `act`.
struct Scenario {
    const char* name;
    /// What the client has done before; nothing goes wrong there.
    std::function<void(Client&)> before, act;

    /// What it may change of the world. Nothing; what is added each time; what is the same after one time and
    /// after two; or the same all at once or not at all.
    enum class Changes { Nothing, Adds, Settles, Whole } changes = Changes::Nothing;
    struct Rest {
        /// It is done again by a client that begins anew: what has failed lasts as long as the driver object.
        bool anew = false;
        /// The trace, as the setting has it.
        const wchar_t* log = L"";
        /// What it may be answered as well when something fails: the next best.
        std::set<std::string> also = {};
        bool hasClient = true;
        /// The short form tries every second call only: windows take their time.
        bool isSlow = false;
    } rest = {};
};

extern const std::vector<Scenario> kScenarios;

}  // namespace prove
