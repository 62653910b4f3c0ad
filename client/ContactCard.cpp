#include "client/ContactCard.h"

#include "client/Automation.h"
#include "client/Driver.h"

namespace pimcall {
namespace {

/// A text of the contact: where it goes, and the member that gives it.
struct TextMember {
    std::wstring ContactCard::*slot;
    HRESULT (STDMETHODCALLTYPE Contact::*get)(BSTR*);
    const wchar_t* name;
};

constexpr TextMember kTextMembers[] = {
    {&ContactCard::fullName, &Contact::get_FullName, L"FullName"},
    {&ContactCard::firstName, &Contact::get_FirstName, L"FirstName"},
    {&ContactCard::lastName, &Contact::get_LastName, L"LastName"},
    {&ContactCard::company, &Contact::get_CompanyName, L"CompanyName"},
    {&ContactCard::department, &Contact::get_Department, L"Department"},
    {&ContactCard::mainNumber, &Contact::get_MainPhoneNumber, L"MainPhoneNumber"},
    {&ContactCard::mainHomeNumber, &Contact::get_MainHomeNumber, L"MainHomeNumber"},
    {&ContactCard::mainEmail, &Contact::get_MainEmail, L"MainEmail"},
    {&ContactCard::photo, &Contact::get_PhotoURL, L"PhotoURL"},
    {&ContactCard::contactId, &Contact::get_ContactId, L"ContactId"},
    {&ContactCard::storeId, &Contact::get_StoreId, L"StoreId"},
    {&ContactCard::employeeId, &Contact::get_employeeId, L"employeeId"},
    {&ContactCard::categoryId, &Contact::get_CategorieId, L"CategorieId"},
    {&ContactCard::assistantId, &Contact::get_AssistantId, L"AssistantId"},
};

struct ListMember {
    std::vector<LabelledValue> ContactCard::*slot;
    HRESULT (STDMETHODCALLTYPE Contact::*get)(IDispatch**);
    const wchar_t* name;
};

constexpr ListMember kListMembers[] = {
    {&ContactCard::numbers, &Contact::get_PhoneNumbers, L"PhoneNumbers"},
    {&ContactCard::emails, &Contact::get_Emails, L"Emails"},
};

std::vector<LabelledValue> readList(Contact& contact, const ListMember& member) {
    ComPtr<IDispatch> collection;
    require((contact.*member.get)(collection.GetAddressOf()), member.name);
    std::vector<LabelledValue> list;
    // A contact that stands for an unknown caller may come without a list.
    if (!collection) return list;
    for (const Value& element : elementsOf(*collection.Get())) list.push_back(splitEntry(element.text()));
    return list;
}

}  // namespace

ContactCard readCard(Contact& contact) {
    ContactCard card;
    card.inPim = !isUnknown(contact);
    for (const TextMember& member : kTextMembers) {
        Bstr text;
        require((contact.*member.get)(text.put()), member.name);
        card.*member.slot = text.text();
    }
    for (const ListMember& member : kListMembers) card.*member.slot = readList(contact, member);
    return card;
}

LabelledValue splitEntry(const std::wstring& entry) {
    constexpr std::wstring_view kSeparator = L": \t";
    if (const size_t end = entry.find(kSeparator); end != std::wstring::npos)
        return {entry.substr(0, end), entry.substr(end + kSeparator.size())};
    return {L"", entry};
}

}  // namespace pimcall
