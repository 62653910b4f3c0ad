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
    L"show", L"show ID", L"Shows the contact that has an identifier (see --verbose).", {}, run};

}  // namespace pimcall
