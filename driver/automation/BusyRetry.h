#pragma once

#include <windows.h>

#include <objidl.h>

#include "automation/Com.h"

namespace zelbar {

/// While it lives, calls that another process turns away because it is busy are tried again for some seconds.
class BusyRetry {
  public:
    BusyRetry();
    ~BusyRetry();
    BusyRetry(const BusyRetry&) = delete;
    BusyRetry& operator=(const BusyRetry&) = delete;

  private:
    Com<IMessageFilter> previous_;
};

}  // namespace zelbar
