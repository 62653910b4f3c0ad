#pragma once

#include <string>

#include "automation/Object.h"
#include "automation/OutlookNames.h"
#include "com/Collection.h"
#include "com/ContactBorder.h"
#include "search/CacheSearch.h"
#include "search/ContactEmployee.h"
#include "search/ContactParts.h"

namespace zelbar {

/// One contact as the client sees it: a live Outlook item, read on demand, or an unknown caller who carries
/// only what was searched. Names and main number are read once; the item is held as long as the contact
/// lives.
class cContact final : public ContactBorder<cContact> {
  public:
    explicit cContact(const ContactParts& parts) : parts_(parts) {}

    // What the driver's own classes do with a contact.

    /// Fills the contact from an Outlook item; none makes it a contact that is not in the PIM, and so does an
    /// item that does not answer as a contact, whose fault is thrown. A `unified` search's contact has a
    /// business number as its main number, or none; without that, as in the search under way.
    void SetValues(const Object& item);
    void SetValues(const Object& item, bool unified);
    void MakeUnknownContact(long searchKind, const std::wstring& searchText);
    void setNotInPIM(bool notInPIM) { notInPIM_ = notInPIM; }

    // The members of the interface.
    std::wstring Contact_CategorieId() const { return employee_.column(L"Categories"); }
    std::wstring Contact_AssistantId() const { return employee_.column(L"AssistantID"); }
    std::wstring Contact_employeeId() const;
    std::wstring Contact_Department() const { return read(outlook::Department); }
    std::wstring Contact_BusinessPhone() const { return read(outlook::BusinessTelephoneNumber); }
    std::wstring Contact_BusinessPhone2() const { return read(outlook::Business2TelephoneNumber); }
    std::wstring Contact_MobilePhone() const { return read(outlook::MobileTelephoneNumber); }
    std::wstring Contact_HomePhone() const { return read(outlook::HomeTelephoneNumber); }
    std::wstring Contact_PagerPhone() const { return read(outlook::PagerNumber); }
    std::wstring Contact_OtherPhone() const { return read(outlook::OtherTelephoneNumber); }
    std::wstring Contact_BusinessPhoneLabel() const { return employee_.label(L"BusinessPhoneLabel"); }
    std::wstring Contact_BusinessPhone2Label() const { return employee_.label(L"BusinessPhone2Label"); }
    std::wstring Contact_MobilePhoneLabel() const { return employee_.label(L"MobilePhoneLabel"); }
    std::wstring Contact_HomePhoneLabel() const { return employee_.label(L"HomePhoneLabel"); }
    std::wstring Contact_PagerPhoneLabel() const { return employee_.label(L"PagerPhoneLabel"); }
    std::wstring Contact_OtherPhoneLabel() const { return employee_.label(L"OtherPhoneLabel"); }
    std::wstring Contact_AssistantPhoneLabel() const { return employee_.label(L"AssistantPhoneLabel"); }
    Com<Collection> Contact_Emails();
    void Contact_MainEmail(std::wstring value) { mainEmail_ = std::move(value); }
    std::wstring Contact_MainEmail();
    std::wstring Contact_ContactId();
    std::wstring Contact_StoreId();
    std::wstring Contact_MainPhoneNumber();
    void Contact_MainPhoneNumber(std::wstring value) { mainPhoneNumber_ = std::move(value); }
    std::wstring Contact_MainHomeNumber();
    void Contact_MainHomeNumber(std::wstring value) { mainHomeNumber_ = std::move(value); }
    std::wstring Contact_CompanyName() const { return read(outlook::CompanyName); }
    void Contact_SpareText(std::wstring value) { spareText_ = std::move(value); }
    std::wstring Contact_PhotoURL();
    void Contact_PhotoURL(std::wstring value);
    Com<Collection> Contact_PhoneNumbers();
    std::wstring Contact_LastName() { return cached(lastName_, outlook::LastName); }
    std::wstring Contact_FirstName() { return cached(firstName_, outlook::FirstName); }
    std::wstring Contact_FullName() { return cached(fullName_, outlook::FileAs); }
    void Contact_FullName(std::wstring value) { fullName_ = std::move(value); }
    bool Contact_NotInPIM() const { return notInPIM_; }
    Variant Contact_PersonalData() const { return personalData_; }
    void Contact_PersonalData(Variant value) { personalData_ = std::move(value); }
    void Contact_Show() const;
    bool Contact_IsSelected() const { return false; }
    bool Contact_IsEqual(const Com<::Contact>& other);
    Variant Contact_ExecuteCommand(const std::wstring&) const { return {}; }

  private:
    void load(const Object& item, bool unified);
    void SetPhoneValues(bool unified);
    void SetPhotoUrl() noexcept;

    /// A text of the item; empty without an item or when Outlook fails.
    std::wstring read(const Member& member) const noexcept;
    /// The same, read once: what is kept is handed out as it is.
    std::wstring& cached(std::wstring& kept, const Member& member) noexcept;
    static std::wstring readStoreId(const Object& item) noexcept;
    /// The addresses that may be read just now, from Outlook or from the directory; no more than asked for.
    std::vector<std::wstring> addresses(size_t most) const;
    void reloadItem() noexcept;
    std::wstring labelOf(const struct TelephoneProperty& property);

    const ContactParts parts_;
    std::wstring firstName_;
    std::wstring lastName_;
    std::wstring fullName_;
    std::wstring mainPhoneNumber_;
    bool notInPIM_ = false;
    Com<Collection> phoneList_;
    Variant personalData_;
    std::wstring mainHomeNumber_;
    std::wstring spareText_;
    std::wstring photoUrl_;
    bool photoUrlIsPut_ = false;  ///< By the client, since the picture was last saved.
    std::wstring contactId_;
    std::wstring storeId_;
    Object item_;
    std::wstring mainEmail_;
    Com<Collection> emailList_;
    ContactEmployee employee_{parts_.log, parts_.directory};
};

}  // namespace zelbar
