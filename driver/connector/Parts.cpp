#include "connector/Parts.h"

namespace zelbar {

ContactParts contactParts(DriverState& state) {
    return {state.log, state.outlook, state.directory, state.paths, state.texts, state.unifiedSearch};
}

ActionParts actionParts(DriverState& state) {
    return {state.log, state.outlook, state.texts, state.user, state.gateway, contactParts(state)};
}

ExportParts exportParts(DriverState& state) {
    return {state.log,   state.gateway, state.outlook,  state.employees,
            state.texts, state.user,    state.exporting};
}

WindowParts windowParts(DriverState& state) {
    return {state.module.title, state.log, state.outlook, state.languages, state.texts};
}

}  // namespace zelbar
