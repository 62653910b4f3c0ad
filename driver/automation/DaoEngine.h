#pragma once

#include "automation/Gateway.h"
#include "automation/Object.h"

namespace zelbar::dao {

/// The first engine of the list that can be made. Throws the last one's fault when none can.
Object createEngine(Gateway& gateway);

}  // namespace zelbar::dao
