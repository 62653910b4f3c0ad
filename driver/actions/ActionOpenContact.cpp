#include "actions/ActionOpenContact.h"

#include "automation/OutlookNames.h"

namespace zelbar {

namespace {

constexpr wchar_t kNewOnInexistant[] = L"NewOnInexistant";
/// The client's mark for a number that several contacts share: nobody is known, and nobody is unknown.
constexpr wchar_t kManyContacts[] = L"MANY";

void openWindow(const Object& item) {
    item.object(outlook::GetInspector).call(outlook::Display);
}

Object newItem(OutlookConnection& connection, const std::wstring& name, const std::wstring& number) {
    const Object item = connection.GetNameSpace()
                            .object(outlook::GetDefaultFolder, outlook::kDefaultContacts)
                            .object(outlook::Items)
                            .object(outlook::AddContact, outlook::kContactItemType);
    item.put(outlook::FullName, name);
    item.put(outlook::BusinessTelephoneNumber, number);
    item.call(outlook::Save);
    return item;
}

}  // namespace

ActionOpenContact::ActionOpenContact(const ActionParts& parts) : ActionBase(parts) {
    try {
        // The texts stand in the order of `Choice`.
        cLocalizedText& texts = parts_.texts;
        const std::vector<std::wstring> choices{texts.translate(L"#05002#"), texts.translate(L"#05003#"),
                                                texts.translate(L"#05001#")};
        const auto property = addSetting(kNewOnInexistant, L"#05000#", choices.front(), kListSetting);
        property->setValues(Variant::ofTexts(choices));
        property->ActionProperty_ValueIndex(kOpenFound);
    } catch (...) {
        parts_.log.fault(L"Error (Class_Initialize - ActionOpenContact): ", caughtFault());
    }
}

short ActionOpenContact::choice() const {
    return setting(kNewOnInexistant)->ActionProperty_ValueIndex();
}

Com<::CallAction> ActionOpenContact::PIMAction_CopyAction() const {
    try {
        return ActionBase::PIMAction_CopyAction();
    } catch (...) {
        parts_.log.trace(L"Error : (CopyAction - ActionOpenContact)");
        return {};
    }
}

void ActionOpenContact::execute(ContactArgument& argument) {
    FLog& log = parts_.log;
    const bool opensFound = choice() == kOpenFound || choice() == kOpenAndCreate;
    const CallContact contact(argument, parts_.gateway);
    if (!contact) {
        log.trace(L"CITem = Nothing");
        return;
    }
    const auto name = [&] { return contact.FullName(); };
    log.trace(
        L"Opening ", name, L" (", [&] { return contact.MainPhoneNumber(); }, L")");
    log.trace(L"OPEN ------------------");
    const LookUp lookUp = parts_.outlook.GetContactFromID(contact.ContactId(), contact.StoreId(),
                                                          L"ActionOpenContact", L"ExecuteAction");
    // Outlook did not answer: making a contact now would double one that it has.
    if (lookUp.failed()) throw lookUp.fault;
    if (lookUp.gone()) {
        meetUnknown(contact);
    } else if (opensFound) {
        log.trace(L"Opening ", name, L"...");
        openWindow(lookUp.item);
    }
}

void ActionOpenContact::meetUnknown(const CallContact& contact) const {
    FLog& log = parts_.log;
    const std::wstring name = contact.FullName();
    if (name == kManyContacts) return;
    log.trace(L"Unknown contact: ", name, L" (Not found in Outlook)...");
    if (choice() != kCreateUnknown && choice() != kOpenAndCreate) return;
    const std::wstring number = contact.MainPhoneNumber();
    log.trace(L"Creating new contact from: ", name, L" and ", number, L"...");
    openWindow(newItem(parts_.outlook, name, number));
}

}  // namespace zelbar
