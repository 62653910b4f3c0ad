#include "connector/Parts.h"

namespace zelbar {

ContactParts contactParts(DriverState& state) {
    return {state.log, state.outlook, state.directory, state.paths, state.texts, state.unifiedSearch};
}

}  // namespace zelbar
