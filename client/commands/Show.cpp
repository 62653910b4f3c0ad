#include "client/commands/ContactAnswer.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    const std::wstring& id = context.arguments.operand(L"contact identifier");
    const Driver driver = context.driver();
    return answerWithContact(context, driver.contactById(id).Get(), L"No contact has this identifier.");
}

}  // namespace

const Command kShow = {
    .name = L"show",
    .synopsis = L"show ID",
    .brief = L"the contact that has an identifier",
    .details = L"Shows the contact that has an identifier (other commands tell it with --verbose).",
    .examples = L"pimcall show ID\n",
    .run = run};

}  // namespace pimcall
