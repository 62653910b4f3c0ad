#include "search/cContact.h"

#include <iterator>
#include <utility>

#include "automation/Attempts.h"
#include "automation/OutlookNames.h"
#include "search/ContactPicture.h"
#include "support/Settings.h"
#include "support/TelephoneNumbers.h"

namespace zelbar {

namespace {

/// Outlook asks the user before it gives addresses away, so they are read only where the client has allowed
/// it.
bool mayReadAddresses() {
    return readSetting(settings::kNoEmailAddressAccess) == L"0";
}

constexpr Member kAddresses[] = {outlook::Email1Address, outlook::Email2Address, outlook::Email3Address};

/// An entry of a list, as the client shows it.
std::wstring listEntry(const std::wstring& label, const std::wstring& value) {
    return label + L": \t" + value;
}

}  // namespace

void cContact::SetValues(const Object& item) {
    SetValues(item, parts_.unifiedSearch);
}

void cContact::SetValues(const Object& item, bool unified) {
    const auto deadline = parts_.outlook.timeForCall();
    notInPIM_ = true;
    if (item) {
        load(item, unified);
        notInPIM_ = false;
    }
    parts_.log.trace(L"Contact.SetValues(Item as Object)");
}

void cContact::load(const Object& item, bool unified) {
    firstName_ = item.text(outlook::FirstName);
    lastName_ = item.text(outlook::LastName);
    fullName_ = item.text(outlook::LastNameAndFirstName);
    if (fullName_.empty()) fullName_ = lastName_;
    contactId_ = item.text(outlook::EntryID);
    item_ = item;
    storeId_ = readStoreId(item);
    SetPhoneValues(unified);
    employee_.link(item);
}

void cContact::MakeUnknownContact(long searchKind, const std::wstring& searchText) {
    const bool byName = searchKind == kSearchByName;
    firstName_ = byName ? searchText : std::wstring();
    mainPhoneNumber_ = byName ? std::wstring() : searchText;
    lastName_.clear();
    contactId_.clear();
    notInPIM_ = true;
    item_ = {};
}

void cContact::SetPhoneValues(bool unified) {
    OutputDebugStringW(L"SetPhoneValues() is executed");
    const size_t count = unified ? kUnifiedTelephoneProperties : kTelephoneProperties.size();
    for (size_t i = 0; i < count; ++i)
        if (std::wstring number = read(kTelephoneProperties[i].member); !number.empty()) {
            mainPhoneNumber_ = std::move(number);
            return;
        }
}

std::wstring cContact::read(const Member& member) const noexcept {
    const auto deadline = parts_.outlook.timeForCall();
    std::wstring result;
    if (item_) Attempts().into(result, [&] { return item_.text(member); });
    return result;
}

std::wstring& cContact::cached(std::wstring& kept, const Member& member) noexcept {
    if (kept.empty()) kept = read(member);
    return kept;
}

std::wstring cContact::Contact_employeeId() const {
    const auto deadline = parts_.outlook.timeForCall();
    std::wstring result;
    const Object item = item_;
    if (item) Attempts().into(result, [&] { return employeeIdOf(item); });
    return result;
}

std::wstring cContact::Contact_ContactId() {
    return cached(contactId_, outlook::EntryID);
}

std::wstring cContact::Contact_StoreId() {
    const auto deadline = parts_.outlook.timeForCall();
    if (storeId_.empty() && item_) storeId_ = readStoreId(item_);
    return storeId_;
}

std::wstring cContact::readStoreId(const Object& item) noexcept {
    std::wstring result;
    Attempts().into(result, [&] {
        // Every folder of a store names the store, so the first one that does ends the climb; the name space
        // at the top names none. No mailbox is as deep as the bound.
        std::wstring storeId;
        Object parent = item.object(outlook::ItemFolder);
        for (int depth = 0; depth < 100 && storeId.empty(); ++depth) {
            if (parent.objectClass() == outlook::kNameSpace) break;
            storeId = parent.text(outlook::StoreID);
            if (storeId.empty()) parent = parent.object(outlook::Parent);
        }
        return storeId;
    });
    return result;
}

std::wstring cContact::Contact_MainPhoneNumber() {
    const auto deadline = parts_.outlook.timeForCall();
    if (mainPhoneNumber_.empty() && item_) SetPhoneValues(parts_.unifiedSearch);
    return mainPhoneNumber_;
}

std::wstring cContact::Contact_MainHomeNumber() {
    const auto deadline = parts_.outlook.timeForCall();
    return cached(cached(mainHomeNumber_, outlook::HomeTelephoneNumber), outlook::Home2TelephoneNumber);
}

std::vector<std::wstring> cContact::addresses(size_t most) const {
    const auto deadline = parts_.outlook.timeForCall();
    std::vector<std::wstring> result;
    if (!mayReadAddresses()) {
        if (employee_.exists()) result.push_back(employee_.column(L"EmailAddress"));
        return result;
    }
    for (const Member& member : kAddresses) {
        if (result.size() == most) break;
        if (std::wstring address = read(member); !address.empty()) result.push_back(std::move(address));
    }
    return result;
}

std::wstring cContact::Contact_MainEmail() {
    if (mainEmail_.empty())
        if (const auto found = addresses(1); !found.empty()) mainEmail_ = found.front();
    return mainEmail_;
}

Com<Collection> cContact::Contact_Emails() {
    if (emailList_ && emailList_->count() > 0) return emailList_;
    // Filled aside: the client may ask again while Outlook is asked, and gets a whole list then too.
    const auto list = makeObject<Collection>();
    const std::wstring label = parts_.texts.translate(L"#99999#");
    for (const auto& address : addresses(std::size(kAddresses))) list->add(listEntry(label, address));
    emailList_ = list;
    return list;
}

void cContact::Contact_PhotoURL(std::wstring value) {
    photoUrl_ = std::move(value);
    photoUrlIsPut_ = true;
}

std::wstring cContact::Contact_PhotoURL() {
    if (item_ && (photoUrl_.empty() || photoUrlIsPut_)) SetPhotoUrl();
    return photoUrl_;
}

/// A picture's file takes the place of what the client has put; without a picture that stays.
void cContact::SetPhotoUrl() noexcept {
    photoUrlIsPut_ = false;
    const auto deadline = parts_.outlook.timeForCall();
    try {
        const Object item = item_;
        if (std::wstring path = savePicture(item, Contact_ContactId(), parts_.paths.DataPath());
            !path.empty())
            photoUrl_ = std::move(path);
    } catch (...) {
        photoUrl_.clear();
        parts_.log.fault(L"Error (SetPhotoUrl): ", caughtFault());
    }
}

void cContact::reloadItem() noexcept {
    if (contactId_.empty()) return;
    // Where Outlook does not give the item anew, the one at hand still serves.
    Attempts().into(item_, [&] {
        const Object session = parts_.outlook.GetNameSpace();
        return storeId_.empty() ? session.object(outlook::GetContactItem, contactId_)
                                : session.object(outlook::GetContactItem, contactId_, storeId_);
    });
}

std::wstring cContact::labelOf(const TelephoneProperty& property) {
    if (property.labelColumn && employee_.exists() && Contact_CategorieId() == L"2")
        if (std::wstring label = employee_.label(property.labelColumn); !label.empty()) return label;
    return parts_.texts.translate(property.labelKey);
}

Com<Collection> cContact::Contact_PhoneNumbers() {
    const auto deadline = parts_.outlook.timeForCall();
    if (phoneList_ && phoneList_->count() > 0) return phoneList_;
    const auto list = makeObject<Collection>();
    parts_.log.trace(L"Contact.Contact_PhoneNumbers()");
    reloadItem();
    for (const auto& property : kTelephoneProperties)
        if (const std::wstring number = read(property.member); !number.empty())
            list->add(listEntry(labelOf(property), number));
    phoneList_ = list;
    return list;
}

void cContact::Contact_Show() const {
    const auto deadline = parts_.outlook.timeForUser();
    if (item_) item_.object(outlook::GetInspector).call(outlook::Display);
}

bool cContact::Contact_IsEqual(const Com<::Contact>& other) {
    if (!other) throw runtimeFault(fault::kObjectNotSet);
    Bstr otherId;
    if (const HRESULT result = other->get_ContactId(otherId.put()); FAILED(result))
        throw faultOf(result, L"client");
    return otherId.text() == Contact_ContactId();
}

}  // namespace zelbar
