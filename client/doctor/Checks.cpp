#include "client/doctor/Finding.h"

namespace pimcall::doctor {

std::vector<Check> allChecks() {
    std::vector<Check> checks;
    for (const auto theme :
         {driverChecks(), outlookChecks(), addressChecks(), dataChecks(), folderChecks(), traceChecks()})
        checks.insert(checks.end(), theme.begin(), theme.end());
    return checks;
}

}  // namespace pimcall::doctor
