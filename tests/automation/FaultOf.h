#pragma once

#include <functional>

#include "automation/Fault.h"

namespace zelbar {

/// What some work throws; a fault without a number when it throws nothing.
inline Fault faultOf(const std::function<void()>& work) {
    try {
        work();
        return {};
    } catch (...) {
        return caughtFault();
    }
}

}  // namespace zelbar
