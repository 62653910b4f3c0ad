#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

#include "automation/Gateway.h"
#include "automation/Object.h"

namespace zelbar {

/// Makes Outlook's Application objects. To find Outlook's class in another process takes several times as
/// long as to make an object of it, so that a class that was found there is kept for as long as it makes
/// some. One in this process is looked for each time: it would outlive its server.
class OutlookClass {
  public:
    /// The gateway must outlive this.
    explicit OutlookClass(const Gateway& gateway) : gateway_(gateway) {}

    /// A new object; starts Outlook where it does not run. Throws a Fault.
    Object newApplication();

    /// The next object comes from the Outlook that serves the class then.
    void forget() noexcept { kept_.reset(); }

  private:
    bool makesOne(Com<IDispatch>& application);
    void findAndMake(Com<IDispatch>& application);
    std::shared_ptr<IClassFactory> owned(Com<IClassFactory> factory) const;

    const Gateway& gateway_;
    std::shared_ptr<IClassFactory> kept_;
};

}  // namespace zelbar
