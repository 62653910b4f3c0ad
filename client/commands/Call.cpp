#include <string>

#include "client/Actions.h"
#include "client/ContactCard.h"
#include "client/ContactJson.h"
#include "client/ContactText.h"
#include "client/Json.h"
#include "client/Text.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

/// What the telephony client learns about one call.
struct CallReport {
    bool incoming = true;
    std::wstring number;
    ContactCard contact;
    /// Matching entries of the cache; one contact may have several.
    long matches = 0;
    bool noMatch = false;
    std::vector<Action> actions;
};

CallReport answerCall(Driver& driver, bool incoming, const std::wstring& number) {
    CallReport report;
    report.incoming = incoming;
    report.number = number;
    Cursor cursor = driver.openCursor();
    report.contact = readCard(*cursor.findFirst(SearchKind::Number, number).Get());
    report.matches = cursor.count();
    report.noMatch = cursor.noMatch();
    report.actions = driver.actions();
    return report;
}

std::wstring reportText(const CallReport& report, bool verbose) {
    std::wstring text = report.incoming ? L"Incoming call from " : L"Outgoing call to ";
    text += oneLine(report.number) + L"\n\n";
    if (report.contact.inPim) {
        text += contactText(report.contact, verbose);
        if (report.matches > 1)
            text += L"\n" + std::to_wstring(report.matches) +
                    L" entries of the cache match; this is the first.\n";
    } else {
        text += L"Unknown caller\n";
        if (!report.noMatch) text += std::wstring(kNotAPlainMiss) + L'\n';
    }
    return text + L"\nActions: " + actionNames(report.actions) + L'\n';
}

std::wstring reportJson(const CallReport& report) {
    return json::Object()
        .text(L"direction", report.incoming ? L"incoming" : L"outgoing")
        .text(L"number", report.number)
        .boolean(L"known", report.contact.inPim)
        .number(L"matches", report.matches)
        .boolean(L"noMatch", report.noMatch)
        .raw(L"contact", contactJson(report.contact))
        .raw(L"actions", actionsJson(report.actions))
        .str();
}

ExitCode run(const Context& context) {
    const std::wstring direction = context.arguments.oneOf(L"--from", L"--to");
    context.arguments.refuseOperands();
    Driver driver = context.driver();
    const CallReport report = answerCall(driver, direction == L"--from", context.arguments.value(direction));
    if (context.json())
        context.out.line(reportJson(report));
    else
        context.out.write(reportText(report, context.verbose()));
    return report.contact.inPim ? ExitCode::Found : ExitCode::NotFound;
}

constexpr Option kOptions[] = {{L"--from", L"NUMBER"}, {L"--to", L"NUMBER"}};

}  // namespace

const Command kCall = {
    L"call", L"call --from NUMBER | --to NUMBER",
    L"Asks for the contact behind a call, as the telephony client does, and for the actions.", kOptions, run};

}  // namespace pimcall
