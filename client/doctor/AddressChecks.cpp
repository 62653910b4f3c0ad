#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall::doctor {
namespace {

Finding guard(const Machine& machine) {
    const zelbar::OutlookGuard& guard = machine.outlook.guard;
    if (guard.isSilent)
        return good(L"Outlook lets programs read addresses without asking: " + guard.reason + L".");
    return notice(
        L"Outlook may ask its user before a program reads addresses, or refuse: " + guard.reason + L".",
        L"Numbers and names are not affected. To change it: File > Options > Trust Center > "
        L"Programmatic Access, as administrator; where a policy decides, show this to yours.");
}

Finding ownSwitch(const Machine& machine) {
    if (machine.outlook.mayReadAddresses == L"0") return good(L"The driver reads e-mail addresses.");
    return notice(L"The driver leaves e-mail addresses alone, as for every new user.",
                  L"Numbers and names are not affected. To have addresses, set NoEmailAddressAccess to 0 "
                  L"in HKEY_CURRENT_USER\\Software\\Norvane\\7316\\Popup.");
}

}  // namespace

std::span<const Check> addressChecks() {
    static constexpr Check kChecks[] = {
        {L"address-guard", L"Address guard", guard},
        {L"address-switch", L"E-mail addresses", ownSwitch},
    };
    return kChecks;
}

}  // namespace pimcall::doctor
