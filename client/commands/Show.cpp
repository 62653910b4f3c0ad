#include "client/ContactCard.h"
#include "client/ContactJson.h"
#include "client/ContactText.h"
#include "client/commands/Commands.h"

namespace pimcall {
namespace {

ExitCode run(const Context& context) {
    const std::wstring& id = context.arguments.operand(L"contact identifier");
    const Driver driver = context.driver();
    const ContactCard card = readCard(*driver.contactById(id).Get());
    if (context.json())
        context.out.line(card.inPim ? contactJson(card) : L"null");
    else if (card.inPim)
        context.out.write(contactText(card, context.verbose()));
    else
        context.out.line(L"No contact has this identifier.");
    return card.inPim ? ExitCode::Found : ExitCode::NotFound;
}

}  // namespace

const Command kShow = {
    L"show", L"show ID", L"Shows the contact that has an identifier (see --verbose).", {}, run};

}  // namespace pimcall
