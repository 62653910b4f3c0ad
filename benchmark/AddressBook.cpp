#include "benchmark/AddressBook.h"

#include <cwchar>
#include <stdexcept>

#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "standin/outlook/host/Host.h"

namespace benchmark {

namespace {

namespace outlook = zelbar::outlook;
using standin::outlook::Mailbox;

constexpr wchar_t kChosenKey[] = L"Software\\Norvane\\7316\\Popup\\zelbar00folder";
constexpr wchar_t kVersion[] = L"16.0.17328.20162";

void choose(const wchar_t* name, const std::wstring& value) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kChosenKey, name, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

/// A switch of the stand-in: an assignment with an index, which nothing else here needs.
void setOption(const Object& application, const wchar_t* name, const wchar_t* value) {
    const auto control = application.object(zelbar::Member{L"StandIn"}).target();
    wchar_t member[] = L"Option";
    wchar_t* asked = member;
    DISPID id = 0, put = DISPID_PROPERTYPUT;
    const zelbar::Variant named{name}, given{value};
    VARIANT arguments[] = {given.raw(), named.raw()};
    DISPPARAMS parameters{arguments, &put, 2, 1};
    if (FAILED(control->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id)) ||
        FAILED(control->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                               nullptr, nullptr)))
        throw std::runtime_error("the stand-in refused a switch");
}

void writeContacts(long count) {
    Mailbox mailbox(standin::outlook::configuredMailboxFile());
    const auto store = mailbox.defaultStore();
    const std::wstring name = L"Book";
    if (const auto old = mailbox.findFolder(store.root, name)) mailbox.eraseFolder(old->id);
    const auto folder = mailbox.addFolder(store.root, name, standin::outlook::ItemType::Contact);
    standin::outlook::Transaction together(mailbox.database());
    for (long n = 0; n < count; ++n)
        mailbox.addContact(folder.id, {{L"LastName", L"Person " + std::to_wstring(n)},
                                       {L"FirstName", L"Ada"},
                                       {L"CompanyName", L"Analytical Engines"},
                                       {L"BusinessTelephoneNumber", AddressBook::number(n)}});
    together.commit();
    choose(L"entryId1", mailbox.entryId(folder));
    choose(L"storeId1", mailbox.storeId(store.id));
    choose(L"selectId1", L"-1");
}

}  // namespace

std::wstring AddressBook::number(long n, bool abroad) {
    constexpr const wchar_t* kHome[] = {L"089/%07ld", L"(089) %07ld", L"089 %07ld", L"0 89 - %07ld"};
    constexpr const wchar_t* kAbroad[] = {L"+44 20 7%07ld", L"+33 1 4%07ld", L"+1 (212) %07ld"};
    const long digits = 2000000 + n;
    wchar_t text[48];
    std::swprintf(text, 48, abroad && n % 3 == 2 ? kAbroad[n / 3 % 3] : kHome[n % 4], digits);
    return text;
}

AddressBook::AddressBook(long count) {
    writeContacts(count);
    application_ = gateway_.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
    setOption(application_, L"Version", kVersion);
}

AddressBook::~AddressBook() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kChosenKey);
}

}  // namespace benchmark
