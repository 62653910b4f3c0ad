#include "client/FaultWords.h"

#include "automation/OutlookFaults.h"
#include "client/Text.h"
#include "support/Text.h"

namespace pimcall {
namespace {

std::wstring reason(const zelbar::Fault& fault) {
    if (saysItemGone(fault)) return L"there is no such item";
    if (saysBusy(fault)) return L"it is busy, perhaps with an open dialog";
    if (saysServerGone(fault)) return L"it was closed meanwhile";
    if (saysNotAnswering(fault)) return L"it did not answer in time";
    if (saysStarting(fault))
        return L"it is starting or closing just now, or runs with other rights than this program";
    if (saysNotInstalled(fault)) return L"it is not installed";
    std::wstring text = oneLine(fault.description);
    while (text.ends_with(L'.') || text.ends_with(L' ')) text.pop_back();
    return text.empty() ? L"no reason was given" : text;
}

}  // namespace

std::wstring inWords(const zelbar::Fault& fault) {
    return reason(fault) + L" (" + numberText(fault) + L")";
}

std::wstring numberText(const zelbar::Fault& fault) {
    if (fault.number >= 0) return std::to_wstring(fault.number);
    return L"0x" + zelbar::hexadecimal(static_cast<std::uint32_t>(fault.number));
}

}  // namespace pimcall
