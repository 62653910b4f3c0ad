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

const Command kActive = {
    L"active", L"active", L"Shows the contact whose window is in front in Outlook.", {}, run};

}  // namespace pimcall
