#include "core/DriverState.h"

#include <memory>

#include "automation/OutgoingCalls.h"
#include "com/ModuleState.h"

namespace zelbar {

namespace {

/// Not destroyed with the module's statics: when a client's process ends without having released the driver,
/// the servers behind the references that are left may be gone already.
std::unique_ptr<DriverState>& holder() {
    static auto& state = *new std::unique_ptr<DriverState>;
    return state;
}

}  // namespace

DriverState::DriverState() {
    waitBy(systemClock());
}

// An object of Outlook's that somebody still holds must not tell a log that is gone.
DriverState::~DriverState() {
    gateway.calls()->reportTo({});
}

void DriverState::waitBy(CallClock& clock) {
    gateway = Gateway(clock);
    gateway.calls()->reportTo([this](const wchar_t* member, ULONGLONG milliseconds) {
        log.trace(L"Outlook did not answer in time: ", member, L", ", milliseconds, L" ms");
    });
}

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

void resetDriver() {
    moduleState().traceTrapped = ModuleState::traceNowhere;
    holder().reset();
}

}  // namespace zelbar
