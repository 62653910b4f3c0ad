#include "actions/ActionSendMail.h"

#include "actions/CallContact.h"
#include "actions/CallInformation.h"
#include "actions/CallText.h"
#include "actions/CallTime.h"
#include "automation/OutlookNames.h"
#include "search/TaggedValue.h"
#include "support/Clock.h"

namespace zelbar {

namespace {

constexpr wchar_t kDestinationAddress[] = L"DestinationAddress";
constexpr wchar_t kAutomaticSend[] = L"AutomaticSend";

/// What the mail says of the call and of the present moment.
std::wstring bodyText(const ActionParts& parts, const std::wstring& type, const CallParty& party) {
    cLocalizedText& texts = parts.texts;
    const DATE now = currentDate();
    std::wstring body = callText(texts, type, party.name) + L" " + texts.translate(L"#05206#") + L" " +
                        dayText(now) + L" " + texts.translate(L"#05205#") + L" " + timeText(now);
    if (party.item) {
        parts.log.trace(L"Contact of call found and stored...");
        body += contactLink(party);
    }
    return body;
}

}  // namespace

ActionSendMail::ActionSendMail(const ActionParts& parts) : ActionBase(parts) {
    addSetting(kDestinationAddress, L"#05201#", L"", kTextSetting);
    addSetting(kAutomaticSend, L"#05202#", true, kBooleanSetting);
}

void ActionSendMail::execute(ContactArgument& argument) {
    FLog& log = parts_.log;
    log.trace(L"MAIL -------------------");
    if (!argument.given()) {
        giveEmptyContact(argument, false, parts_.contact);
        log.trace(L"Item is nothing...");
    }
    const CallContact contact(argument, parts_.gateway);
    const Object mail = parts_.outlook.GetApp().object(outlook::CreateMail, outlook::kMailItemType);
    if (const std::wstring address = value(kDestinationAddress).text(); !address.empty()) {
        log.trace(L"Sending mail to ", address, L" called by ", [&] { return contact.FullName(); });
        mail.object(outlook::Recipients).call(outlook::AddRecipient, address);
    }
    const CallParty party =
        callPartyOf(parts_, contact, L"ActionSendMail", L"Mail : Item get from ID is nothing !");
    mail.put(outlook::Subject, neutralCallText(parts_.texts, party.name));
    // The body is put once and never read back: reading it makes Outlook ask the user for leave.
    const std::wstring body = bodyText(parts_, GetTaggedValue(contact.callInformation(), call::kType), party);
    mail.put(outlook::Body, body);
    log.trace(L"Body = ", body);
    if (value(kAutomaticSend).boolean()) {
        mail.call(outlook::Send);
        log.trace(L"Mail sent...");
    } else {
        mail.object(outlook::GetInspector).call(outlook::Display);
        log.trace(L"Mail displayed...");
    }
}

}  // namespace zelbar
