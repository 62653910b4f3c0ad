#include "core/DriverState.h"

#include <memory>

#include "com/ModuleState.h"

namespace zelbar {

namespace {

std::unique_ptr<DriverState>& holder() {
    static std::unique_ptr<DriverState> state;
    return state;
}

}  // namespace

DriverState& driver() {
    auto& state = holder();
    if (!state) {
        state = std::make_unique<DriverState>();
        moduleState().traceTrapped = [](const wchar_t* prefix, const Fault& fault) noexcept {
            driver().log.fault(prefix, fault);
        };
    }
    return *state;
}

void releaseOutlook() {
    if (const auto& state = holder()) state->outlook.release();
}

void resetDriver() {
    moduleState().traceTrapped = nullptr;
    holder().reset();
}

}  // namespace zelbar
