#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall::doctor {
namespace {

/// Values of Outlook's settings for programs that want addresses.
enum Guard : DWORD { kWarnUnlessProtected = 0, kWarnAlways = 1, kNeverWarn = 2 };
enum Prompt : DWORD { kDeny = 0, kAsk = 1, kAllow = 2 };

constexpr wchar_t kTellAdministrator[] = L"A policy decides this: show this line to your administrator.";

Finding policy(DWORD mode, const std::optional<DWORD>& prompt) {
    const std::wstring set =
        L" (AdminSecurityMode " + std::to_wstring(mode) +
        (prompt ? L", PromptOOMAddressInformationAccess " + std::to_wstring(*prompt) : L"") + L").";
    if (prompt == kAllow) return good(L"A policy lets programs read addresses" + set);
    if (prompt == kDeny)
        return notice(L"A policy keeps e-mail addresses from programs" + set + L" Numbers are not affected.",
                      kTellAdministrator);
    return notice(L"By a policy Outlook may ask before a program reads addresses" + set, kTellAdministrator);
}

Finding guard(const Machine& machine) {
    const OutlookFacts& outlook = machine.outlook;
    if (outlook.adminSecurityMode.value_or(0) != 0)
        return policy(*outlook.adminSecurityMode, outlook.promptForAddresses);
    switch (outlook.objectModelGuard.value_or(kWarnUnlessProtected)) {
        case kWarnAlways:
            return notice(
                L"Outlook asks each time before a program reads addresses.",
                L"File > Options > Trust Center > Programmatic Access > \"Warn me when my antivirus "
                L"is inactive\". (Start Outlook as administrator once to change it.)");
        case kNeverWarn:
            return good(L"Outlook lets programs read addresses without asking.");
        default:
            break;
    }
    if (outlook.antivirusIsGood == false)
        return notice(
            L"Outlook asks before a program reads addresses, since Windows reports no antivirus "
            L"that is up to date.",
            L"Update the antivirus, or have an administrator set the policy.");
    return good(L"Outlook asks before a program reads addresses only where no antivirus is active.");
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
