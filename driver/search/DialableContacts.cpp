#include "search/DialableContacts.h"

#include "automation/Bstr.h"

namespace zelbar {

namespace {

constexpr long kMostContacts = 25;

void debugOutput(const std::wstring& text) {
    OutputDebugStringW(text.c_str());
}

std::wstring textFrom(::Contact& contact, HRESULT (STDMETHODCALLTYPE ::Contact::*member)(BSTR*)) {
    Bstr result;
    (contact.*member)(result.put());
    return result.text();
}

bool canBeDialled(::Contact& contact) {
    return !textFrom(contact, &::Contact::get_MainPhoneNumber).empty() ||
           !textFrom(contact, &::Contact::get_MainHomeNumber).empty() ||
           !textFrom(contact, &::Contact::get_MobilePhone).empty();
}

void debugNumber(::Contact& contact) {
    debugOutput(L"Contact MainPhoneNumber : " + textFrom(contact, &::Contact::get_MainPhoneNumber));
}

}  // namespace

Com<Collection> dialableContacts(const Com<::Contact>& first, const std::function<Com<::Contact>()>& next) {
    auto contacts = makeObject<Collection>();
    if (!first) return contacts;
    debugOutput(L"ContactRecord_FillContactCollection....cC is something");
    debugNumber(*first);
    if (!canBeDialled(*first)) return contacts;
    debugOutput(L"ContactRecord_FillContactCollection....fContact.MainPhoneNumber is something");
    contacts->add(Variant(Com<IDispatch>(first)));
    debugOutput(L"ContactRecord_FillContactCollection....first contact found and added");
    debugOutput(L"Contact No found is : 1");
    while (contacts->count() < kMostContacts) {
        const Com<::Contact> contact = next();
        if (!contact) break;
        debugNumber(*contact);
        if (!canBeDialled(*contact)) continue;
        contacts->add(Variant(Com<IDispatch>(contact)));
        debugOutput(L"Contact No found is : " + std::to_wstring(contacts->count()));
    }
    return contacts;
}

void traceContacts(FLog& log, const Collection& contacts) {
    if (!log.LogEnabled()) return;
    if (contacts.count() == 0) {
        log.trace(L"collection of contacts not found");
        return;
    }
    log.trace(L"collection of contacts found");
    log.trace(L"No of contacts found : ", contacts.count());
    long position = 0;
    for (const Variant& entry : contacts.values()) {
        const auto contact = entry.object().as<::Contact>();
        const auto read = [&](HRESULT (STDMETHODCALLTYPE ::Contact::*member)(BSTR*)) {
            return [&, member] { return textFrom(*contact, member); };
        };
        log.trace(L"contact: ", ++position);
        log.trace(L"Last Name : ", read(&::Contact::get_LastName));
        log.trace(L"FirstName : ", read(&::Contact::get_FirstName));
        log.trace(L"MainPhoneNumber : ", read(&::Contact::get_MainPhoneNumber));
    }
}

}  // namespace zelbar
