#include "connector/Parts.h"

namespace zelbar {

ContactParts contactParts(DriverState& state) {
    return {state.log, state.outlook, state.directory, state.paths, state.texts, state.unifiedSearch};
}

ActionParts actionParts(DriverState& state) {
    return {state.log, state.outlook, state.texts, state.user, state.gateway, contactParts(state)};
}

}  // namespace zelbar
