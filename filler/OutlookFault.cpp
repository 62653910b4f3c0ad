#include "filler/OutlookFault.h"

#include "automation/OutlookFaults.h"

namespace filler {

bool mayPass(const zelbar::Fault& fault) {
    return saysBusy(fault) || saysServerGone(fault) || saysStarting(fault);
}

std::wstring explain(const zelbar::Fault& fault) {
    if (saysBusy(fault)) return L"it is busy, perhaps with an open dialog";
    if (saysServerGone(fault)) return L"it was closed meanwhile";
    if (saysStarting(fault))
        return L"it is starting or closing just now, or runs with other rights than this program";
    if (saysNotInstalled(fault)) return L"it is not installed";
    return fault.description;
}

}  // namespace filler
