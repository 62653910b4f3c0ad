#include "client/commands/ContactAnswer.h"

#include "client/ContactCard.h"
#include "client/ContactJson.h"
#include "client/ContactText.h"

namespace pimcall {

ExitCode answerWithContact(const Context& context, Contact* contact, const wchar_t* none) {
    ContactCard card;
    if (contact) card = readCard(*contact);
    if (context.json())
        context.out.line(card.inPim ? contactJson(card) : L"null");
    else if (card.inPim)
        context.out.write(contactText(card, context.verbose()));
    else
        context.out.line(none);
    return card.inPim ? ExitCode::Found : ExitCode::NotFound;
}

}  // namespace pimcall
