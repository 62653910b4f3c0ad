#include "actions/CallContact.h"

#include "automation/Bstr.h"
#include "search/cContact.h"

namespace zelbar {

namespace {

void checked(HRESULT result) {
    if (FAILED(result)) throw faultOf(result, L"client");
}

}  // namespace

CallContact::CallContact(const ContactArgument& argument, Gateway& gateway) {
    const Com<IUnknown> object = argument.given();
    given_ = static_cast<bool>(object);
    contact_ = object.as<::Contact>();
    if (!contact_) lateBound_ = Object(gateway, Server::Client, object.as<IDispatch>(), kUnknownClass);
}

std::wstring CallContact::text(TextGetter getter, const wchar_t* name) const {
    if (!contact_) return lateBound_.text(Member{name});
    Bstr value;
    checked((contact_.get()->*getter)(value.put()));
    return value.text();
}

std::wstring CallContact::FullName() const {
    return text(&::Contact::get_FullName, L"FullName");
}
std::wstring CallContact::MainPhoneNumber() const {
    return text(&::Contact::get_MainPhoneNumber, L"MainPhoneNumber");
}
std::wstring CallContact::ContactId() const {
    return text(&::Contact::get_ContactId, L"ContactId");
}
std::wstring CallContact::StoreId() const {
    return text(&::Contact::get_StoreId, L"StoreId");
}

bool CallContact::NotInPIM() const {
    if (!contact_) return lateBound_.boolean(Member{L"NotInPIM"});
    VARIANT_BOOL value = VARIANT_FALSE;
    checked(contact_->get_NotInPIM(&value));
    return value != VARIANT_FALSE;
}

std::wstring CallContact::callInformation() const {
    Variant data;
    if (contact_)
        checked(contact_->get_PersonalData(data.put()));
    else
        data = lateBound_.get(Member{L"PersonalData"});
    return data.type() == VT_BSTR ? data.text() : std::wstring();
}

void giveEmptyContact(ContactArgument& argument, bool notInPIM, const ContactParts& parts) {
    const auto contact = makeObject<cContact>(parts);
    contact->setNotInPIM(notInPIM);
    argument.replace(contact);
}

}  // namespace zelbar
