#include "client/ActionReport.h"

#include "client/commands/Commands.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const std::vector<Action> actions = context.driver().actions();
    if (context.json())
        context.out.line(actionsJson(actions));
    else if (actions.empty())
        context.out.line(L"The driver offers no actions.");
    else
        context.out.write(actionsText(actions, context.verbose()));
    return actions.empty() ? ExitCode::NotFound : ExitCode::Found;
}

}  // namespace

const Command kActions = {
    .name = L"actions",
    .synopsis = L"actions",
    .brief = L"the actions for a call, with their settings",
    .details = L"Lists the actions for a call, with their settings as the driver sets them at first.",
    .examples = L"pimcall actions\n",
    .run = run};

}  // namespace pimcall
