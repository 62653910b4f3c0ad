#pragma once

#include "automation/CallFilter.h"

namespace zelbar {

/// While it lives, calls that another process turns away because it is busy are tried again for some seconds.
class BusyRetry {
  private:
    CallFilter filter_{{[](DWORD elapsed) {
                            constexpr DWORD kPatience = 10000, kPause = 200;
                            return elapsed < kPatience ? kPause : CallRules::kGiveUp;
                        },
                        {}}};
};

}  // namespace zelbar
