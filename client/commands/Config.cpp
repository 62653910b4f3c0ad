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
    serveOpenWindows(context.notes, context.activity);
    const bool configured = driver.isConfigured();
    if (context.json())
        context.out.line(json::Object().boolean(L"configured", configured).str());
    else
        context.out.line(configured ? L"Contacts folders are chosen, and there is a cache of them."
                                    : L"No contacts folders are chosen, or there is no cache of them yet.");
    return configured ? ExitCode::Found : ExitCode::NotFound;
}

}  // namespace

const Command kConfig = {
    .name = L"config",
    .synopsis = L"config",
    .brief = L"the window for the choice of contacts folders",
    .details = L"Opens the driver's window for the choice of contacts folders, and waits until it is closed.",
    .examples = L"pimcall config\n",
    .run = run};

}  // namespace pimcall
