#include "com/ModuleState.h"

namespace zelbar {

ModuleState& moduleState() {
    static ModuleState instance;
    return instance;
}

}  // namespace zelbar
