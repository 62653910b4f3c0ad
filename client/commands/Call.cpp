#include <algorithm>
#include <array>
#include <string>

#include "client/ActionOptions.h"
#include "client/ActionReport.h"
#include "client/CallInformation.h"
#include "client/ContactCard.h"
#include "client/ContactJson.h"
#include "client/ContactText.h"
#include "client/Json.h"
#include "client/OpenWindows.h"
#include "client/PlaceOptions.h"
#include "client/Text.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

/// What the telephony client learns about one call, and does about it.
struct CallReport {
    CallDetails details;
    ContactCard contact;
    /// Matching entries of the cache; one contact may have several.
    long matches = 0;
    bool noMatch = false;
    std::vector<Action> actions;
    /// Those that were run.
    std::vector<std::wstring> actionsRun;
    /// An action has taken the contact away: the call is over.
    bool contactReleased = false;
};

/// Runs actions one after the other, as the client does in the course of a call.
void runActions(std::vector<OwnAction> actions, ComPtr<Contact> contact, CallReport& report) {
    for (OwnAction& action : actions) {
        action.run(contact);
        report.actionsRun.push_back(action.name());
    }
    report.contactReleased = !actions.empty() && !contact;
}

CallReport answerCall(const Driver& driver, const CallDetails& details, const std::wstring& information,
                      const ActionOptions& options) {
    CallReport report;
    report.details = details;
    Cursor cursor = driver.openCursor();
    const ComPtr<Contact> contact = cursor.findFirst(SearchKind::Number, details.number);
    report.contact = readCard(*contact.Get());
    report.matches = cursor.count();
    report.noMatch = cursor.noMatch();
    report.actions = driver.actions();
    require(contact->put_PersonalData(Value(information).raw()), L"PersonalData");
    runActions(options.configure(driver), contact, report);
    return report;
}

std::wstring reportText(const CallReport& report, bool verbose) {
    std::wstring text = report.details.incoming ? L"Incoming call from " : L"Outgoing call to ";
    text += oneLine(report.details.number) + L"\n\n";
    if (report.contact.inPim) {
        text += contactText(report.contact, verbose);
        if (report.matches > 1)
            text += L"\n" + std::to_wstring(report.matches) +
                    L" entries of the cache match; this is the first.\n";
    } else {
        text += L"Unknown caller\n";
        if (!report.noMatch) text += std::wstring(kNotAPlainMiss) + L'\n';
    }
    text += L"\nActions: " + listed(namesOf(report.actions)) + L'\n';
    if (!report.actionsRun.empty()) text += L"Run: " + listed(report.actionsRun) + L'\n';
    if (report.contactReleased) text += L"The driver has let go of the contact: the call is over.\n";
    return text;
}

std::wstring reportJson(const CallReport& report) {
    return json::Object()
        .text(L"direction", report.details.incoming ? L"incoming" : L"outgoing")
        .text(L"number", report.details.number)
        .boolean(L"known", report.contact.inPim)
        .number(L"matches", report.matches)
        .boolean(L"noMatch", report.noMatch)
        .raw(L"contact", contactJson(report.contact))
        .raw(L"actions", actionsJson(report.actions))
        .raw(L"run", json::array(report.actionsRun, json::quoted))
        .boolean(L"contactReleased", report.contactReleased)
        .str();
}

CallDetails detailsOf(const Arguments& arguments, const ActionOptions& options) {
    const std::wstring direction = arguments.oneOf(L"--from", L"--to");
    CallDetails details;
    details.incoming = direction == L"--from";
    details.number = arguments.value(direction);
    options.describe(details);
    return details;
}

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const auto options = ActionOptions::parse(context.arguments);
    const CallDetails details = detailsOf(context.arguments, options);
    const std::wstring information = options.any() ? callInformation(details) : L"";
    const CallReport report = answerCall(context.driver(), details, information, options);
    if (context.json())
        context.out.line(reportJson(report));
    else
        context.out.write(reportText(report, context.verbose()));
    noteRemark(context.notes, details.number);
    // A program that did not start is told in a window, which is gone when this program ends.
    serveOpenWindows(context.notes, context.activity);
    return report.contact.inPim ? ExitCode::Found : ExitCode::NotFound;
}

constexpr auto kOptions = [] {
    std::array<Option, 2 + std::size(kActionOptions)> all{Option{L"--from", L"NUMBER"},
                                                          Option{L"--to", L"NUMBER"}};
    std::ranges::copy(kActionOptions, all.begin() + 2);
    return all;
}();

}  // namespace

const Command kCall = {
    .name = L"call",
    .synopsis = L"call --from NUMBER | --to NUMBER [--action ACTION[,ACTION...]] [OPTION...]",
    .brief = L"the contact behind a call, and what can be done for it",
    .details =
        L"Asks for the contact behind a call, as the telephone client does, and for the actions; runs those\n"
        L"named, in that order. The driver does not tell what came of them: Outlook shows it, and the driver's\n"
        L"log.\n"
        L"\n"
        L"  open      opens the contact; --create: makes one for an unknown caller as well;\n"
        L"            --create-only: makes one for an unknown caller, and opens none that is found\n"
        L"  mail      sends a mail about the call; --to-address ADDRESS; --leave-open: shows it instead\n"
        L"  journal   writes a journal entry\n"
        L"  launch    starts a program; --path FOLDER; --arguments TEXT: program and arguments, where $1 is\n"
        L"            the number, $2 the own number, $3 INC or OUT, $4 the origin\n"
        L"  close     closes the contact\n"
        L"\n"
        L"About the call: --start \"DATE TIME\", --duration TEXT, --local-number NUMBER, --origin TEXT\n",
    .examples =
        L"pimcall call --from +4930123456\n"
        L"pimcall call --to 123 --action open\n"
        L"pimcall call --from 123 --action journal,mail --to-address desk@example.com --duration 00:04:00\n",
    .options = kOptions,
    .run = run};

}  // namespace pimcall
