#include "actions/ActionStoreInJournal.h"

#include "actions/CallContact.h"
#include "actions/CallInformation.h"
#include "actions/CallText.h"
#include "actions/CallTime.h"
#include "automation/OutlookNames.h"
#include "search/TaggedValue.h"
#include "support/Clock.h"

namespace zelbar {

namespace {

/// A call that had a length ends now; one that had none was over as it began. Outlook works the length out.
void putTimes(const Object& entry, const std::wstring& callInformation) {
    if (GetTaggedValue(callInformation, call::kDuration).empty()) {
        entry.put(outlook::Start, Variant::ofDate(currentDate()));
        entry.put(outlook::Duration, 0);
    } else {
        entry.put(outlook::Start,
                  Variant::ofDate(dateFromText(GetTaggedValue(callInformation, call::kStart))));
        entry.put(outlook::End, Variant::ofDate(currentDate()));
    }
}

}  // namespace

void ActionStoreInJournal::execute(ContactArgument& argument) {
    FLog& log = parts_.log;
    log.trace(L"JOURNAL ---------------");
    if (!argument.given()) giveEmptyContact(argument, true, parts_.contact);
    const CallContact contact(argument, parts_.gateway);
    log.trace(L"Storing in journal call from ", [&] { return contact.FullName(); });
    const CallParty party =
        callPartyOf(parts_, contact, L"ActionStoreInJournal", L"Journal : Item get from ID is nothing !");
    const Object entry =
        parts_.outlook.GetApp().object(outlook::CreateJournalEntry, outlook::kJournalItemType);
    const std::wstring information = contact.callInformation();
    putTimes(entry, information);
    const std::wstring text = callText(parts_.texts, GetTaggedValue(information, call::kType), party.name);
    entry.put(outlook::Subject, text);
    std::wstring body = text;
    if (party.item) {
        log.trace(L"Contact of call found and stored...");
        body += L" " + contactLink(party);
    }
    entry.put(outlook::Body, body);
    log.trace(L"Message: ", text, L"...");
    entry.call(outlook::Save);
}

}  // namespace zelbar
