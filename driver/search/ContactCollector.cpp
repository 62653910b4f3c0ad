#include "automation/OutlookNames.h"
#include "core/DriverState.h"
#include "search/cContactRecord.h"
#include "support/Settings.h"

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

void logCollection(const Collection& contacts) {
    FLog& log = driver().log;
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
        log.trace(L"contact: ", ++position);
        log.trace(L"Last Name : ", textFrom(*contact.get(), &::Contact::get_LastName));
        log.trace(L"FirstName : ", textFrom(*contact.get(), &::Contact::get_FirstName));
        log.trace(L"MainPhoneNumber : ", textFrom(*contact.get(), &::Contact::get_MainPhoneNumber));
    }
}

}  // namespace

/// The contacts of a search that have something to dial, for the client's list. When the first match has
/// nothing to dial, the others are not looked at.
Com<Collection> cContactRecord::ContactRecord_FillContactCollection(long searchKind,
                                                                    const std::wstring& searchText) {
    driver().log.trace(L"ContactRecord_FillContactCollection()");
    debugOutput(L"ContactRecord_FillContactCollection......OutputDebugString");
    const auto contacts = makeObject<Collection>();
    driver().contacts = contacts;

    // Through the members, which fail to "none": what was collected before a failure is still handed out.
    Com<::Contact> contact;
    FindFirstForUnified(&searchKind, Bstr(searchText).get(), contact.put());
    if (contact) {
        debugOutput(L"ContactRecord_FillContactCollection....cC is something");
        debugOutput(L"Contact MainPhoneNumber : " +
                    textFrom(*contact.get(), &::Contact::get_MainPhoneNumber));
    }
    if (contact && canBeDialled(*contact.get())) {
        debugOutput(L"ContactRecord_FillContactCollection....fContact.MainPhoneNumber is something");
        contacts->add(Variant(Com<IDispatch>(contact)));
        debugOutput(L"ContactRecord_FillContactCollection....first contact found and added");
        debugOutput(L"Contact No found is : 1");
        while (contacts->count() < kMostContacts) {
            FindNext(contact.put());
            if (!contact) break;
            debugOutput(L"Contact MainPhoneNumber : " +
                        textFrom(*contact.get(), &::Contact::get_MainPhoneNumber));
            if (!canBeDialled(*contact.get())) continue;
            contacts->add(Variant(Com<IDispatch>(contact)));
            debugOutput(L"Contact No found is : " + std::to_wstring(contacts->count()));
        }
        writeSetting(settings::kNoEmailAddressAccess, L"0");
    }
    logCollection(*contacts.get());
    return contacts;
}

}  // namespace zelbar
