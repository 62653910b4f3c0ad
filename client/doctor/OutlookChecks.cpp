#include <algorithm>

#include "client/FaultWords.h"
#include "client/doctor/Finding.h"
#include "client/doctor/Machine.h"

namespace pimcall::doctor {
namespace {

using State = LiveOutlook::State;

constexpr wchar_t kSeeAbove[] = L"See the lines above about Outlook.";

Finding installed(const Machine& machine) {
    const OutlookFacts& outlook = machine.outlook;
    if (!outlook.program.named()) {
        if (outlook.isNewInstalled)
            return problem(L"There is only the new Outlook, which other programs cannot reach.",
                           L"Install the classic Outlook (it is part of Microsoft 365).");
        return problem(L"There is no Outlook on this computer, or its registration is broken.",
                       L"Install the classic Outlook, or repair Office (Settings > Apps > Modify > Repair).");
    }
    if (!outlook.program.exists)
        return problem(L"Outlook is registered as " + outlook.program.path + L", and there is no such file.",
                       L"Repair Office (Settings > Apps > Modify > Repair).");
    if (outlook.program.bits == 0)
        return problem(L"What is registered as Outlook is no program: " + outlook.program.path + L".",
                       L"Repair Office (Settings > Apps > Modify > Repair).");
    const std::wstring version = outlook.program.version.empty() ? L"" : L" " + outlook.program.version;
    return good(L"Classic Outlook" + version + L", " + std::to_wstring(outlook.program.bits) + L" bits: " +
                outlook.program.path + L".");
}

Finding newOutlook(const Machine& machine) {
    const OutlookFacts& outlook = machine.outlook;
    if (outlook.isNewRunning && outlook.processes.empty())
        return problem(L"Only the new Outlook is open, which other programs cannot reach.",
                       L"Turn its switch \"New Outlook\" off, or open the classic one beside it.");
    if (outlook.isNewPreferred)
        return notice(L"This user has chosen the new Outlook, which other programs cannot reach.",
                      L"Turn its switch \"New Outlook\" off; until then the classic one is started hidden.");
    return good(L"The classic Outlook is the one in use.");
}

Finding rights(const Machine& machine) {
    const OutlookFacts& outlook = machine.outlook;
    for (const OutlookProcess& process : outlook.processes) {
        const bool isOther =
            process.elevated ? *process.elevated != outlook.areWeElevated : !outlook.areWeElevated;
        if (isOther)
            return problem(
                std::wstring(L"Outlook and this program run with different rights (") +
                    (outlook.areWeElevated ? L"this program as administrator" : L"Outlook as administrator") +
                    L"), and Windows lets neither see the other.",
                L"Close the one that was started with \"Run as administrator\" and start it normally; look "
                L"at the Compatibility tab of its shortcut, too. The client needs the same rights.");
    }
    return good(outlook.processes.empty() ? L"Outlook is not running; nothing to compare."
                                          : L"Outlook and this program run with the same rights.");
}

bool isAtAQuestion(const OutlookProcess& process) {
    return process.hasDialog && !process.hasWindow;
}

Finding profile(const Machine& machine) {
    const OutlookFacts& outlook = machine.outlook;
    if (!outlook.live.answers() && std::ranges::any_of(outlook.processes, isAtAQuestion))
        return problem(
            L"Outlook waits for the answer to a question, most likely which profile it is to take.",
            L"Answer it; then Control Panel > Mail > Show Profiles > Always use this profile.");
    if (!outlook.hasProfile)
        return problem(L"This user has no Outlook profile.", L"Start Outlook once and set up an account.");
    if (outlook.asksForProfile)
        return notice(
            L"Outlook asks for a profile at each start; a call that starts it waits for the answer.",
            L"Control Panel > Mail > Show Profiles > Always use this profile.");
    return good(L"Outlook takes its profile without asking.");
}

Finding answers(const Machine& machine) {
    const OutlookFacts& outlook = machine.outlook;
    switch (outlook.live.state) {
        case State::Answers:
            return good(L"Outlook " + outlook.live.version + L" runs and answers, with " +
                        std::to_wstring(outlook.live.stores.size()) +
                        (outlook.live.stores.size() == 1 ? L" store." : L" stores."));
        case State::Busy:
            return problem(L"Outlook is busy and turns calls away, perhaps because of an open dialog.",
                           L"Look for a dialog of Outlook's and answer it.");
        case State::Silent:
            return problem(L"Outlook runs, but did not answer within some seconds: it hangs.",
                           L"Wait a minute; if it still hangs, end OUTLOOK.EXE in the Task Manager and "
                           L"start it again.");
        case State::Failed:
            return problem(L"Outlook runs, but cannot be asked: " + inWords(outlook.live.fault) + L".",
                           L"Close Outlook and start it again; if that does not help, repair Office.");
        case State::NotRunning:
            break;
    }
    if (!outlook.program.exists) return notice(L"Not asked: there is no classic Outlook.", kSeeAbove);
    return notice(L"Outlook is not running; the driver starts it, hidden, when the next call comes in.",
                  L"Start Outlook for quicker answers, and run this again to have the rest checked.");
}

}  // namespace

std::span<const Check> outlookChecks() {
    static constexpr Check kChecks[] = {
        {L"outlook", L"Outlook", installed},
        {L"new-outlook", L"New Outlook", newOutlook},
        {L"outlook-rights", L"Outlook's rights", rights},
        {L"outlook-profile", L"Outlook's profile", profile},
        {L"outlook-answers", L"Outlook answers", answers},
    };
    return kChecks;
}

}  // namespace pimcall::doctor
