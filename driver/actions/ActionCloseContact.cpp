#include "actions/ActionCloseContact.h"

#include "actions/CallContact.h"
#include "automation/OutlookNames.h"

namespace zelbar {

void ActionCloseContact::execute(ContactArgument& argument) {
    FLog& log = parts_.log;
    const CallContact contact(argument, parts_.gateway);
    // First of all, since the client must let go of the contact whatever becomes of its window.
    argument.replace({});
    log.trace(L"Closing ", [&] { return contact ? contact.FullName() : std::wstring(); });
    if (!contact || contact.NotInPIM()) return;
    log.trace(L"CLOSE -----------------");
    const LookUp lookUp = parts_.outlook.GetContactFromID(contact.ContactId(), contact.StoreId(),
                                                          L"ActionCloseContact", L"ExecuteAction");
    if (lookUp.failed()) throw lookUp.fault;
    lookUp.item.object(outlook::GetInspector).call(outlook::Close, outlook::kCloseWithPrompt);
}

}  // namespace zelbar
