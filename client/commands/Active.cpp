#include "client/commands/ContactAnswer.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    context.arguments.refuseOperands();
    const Driver driver = context.driver();
    return answerWithContact(context, driver.activeContact().Get(),
                             L"No contact's window is in front in Outlook.");
}

}  // namespace

const Command kActive = {.name = L"active",
                         .synopsis = L"active",
                         .brief = L"the contact whose window is in front in Outlook",
                         .details = L"Shows the contact whose window is in front in Outlook.",
                         .examples = L"pimcall active --json\n",
                         .run = run};

}  // namespace pimcall
