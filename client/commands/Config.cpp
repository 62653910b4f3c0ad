#include "client/Json.h"
#include "client/OpenWindows.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const Driver driver = context.driver();
    driver.configure();
    if (!hasOpenWindow())
        throw Failure(L"The driver opened no window; its log and the user's error file tell why.");
    serveOpenWindows(context.notes);
    const bool configured = driver.isConfigured();
    if (context.json())
        context.out.line(json::Object().boolean(L"configured", configured).str());
    else
        context.out.line(configured ? L"Contacts folders are chosen, and there is a cache of them."
                                    : L"No contacts folders are chosen, or there is no cache of them yet.");
    return configured ? ExitCode::Found : ExitCode::NotFound;
}

}  // namespace

const Command kConfig = {L"config",
                         L"config",
                         L"Opens the driver's window for the choice of contacts folders, and waits until it "
                         L"is closed.",
                         {},
                         run};

}  // namespace pimcall
