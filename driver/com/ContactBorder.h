#pragma once

#include "com/Border.h"
#include "com/CallerVariant.h"

namespace zelbar {

/// The members of `Contact`.
template <class Self>
class ContactBorder : public Border<Self, ::Contact> {
  public:
    STDMETHODIMP get_CategorieId(BSTR* result) noexcept override {
        return answer(L"Error (CategorieId): ", result, [&] { return self()->Contact_CategorieId(); });
    }
    STDMETHODIMP get_AssistantId(BSTR* result) noexcept override {
        return answer(L"Error (AssistantId): ", result, [&] { return self()->Contact_AssistantId(); });
    }
    STDMETHODIMP get_employeeId(BSTR* result) noexcept override {
        return answer(L"Error (employeeId): ", result, [&] { return self()->Contact_employeeId(); });
    }
    STDMETHODIMP get_Department(BSTR* result) noexcept override {
        return answer(L"Error (Department): ", result, [&] { return self()->Contact_Department(); });
    }
    STDMETHODIMP get_BusinessPhone(BSTR* result) noexcept override {
        return answer(L"Error (BusinessPhone): ", result, [&] { return self()->Contact_BusinessPhone(); });
    }
    STDMETHODIMP get_BusinessPhone2(BSTR* result) noexcept override {
        return answer(L"Error (BusinessPhone2): ", result, [&] { return self()->Contact_BusinessPhone2(); });
    }
    STDMETHODIMP get_MobilePhone(BSTR* result) noexcept override {
        return answer(L"Error (MobilePhone): ", result, [&] { return self()->Contact_MobilePhone(); });
    }
    STDMETHODIMP get_HomePhone(BSTR* result) noexcept override {
        return answer(L"Error (HomePhone): ", result, [&] { return self()->Contact_HomePhone(); });
    }
    STDMETHODIMP get_PagerPhone(BSTR* result) noexcept override {
        return answer(L"Error (PagerPhone): ", result, [&] { return self()->Contact_PagerPhone(); });
    }
    STDMETHODIMP get_OtherPhone(BSTR* result) noexcept override {
        return answer(L"Error (OtherPhone): ", result, [&] { return self()->Contact_OtherPhone(); });
    }
    STDMETHODIMP get_BusinessPhoneLabel(BSTR* result) noexcept override {
        return answer(L"Error (BusinessPhoneLabel): ", result,
                      [&] { return self()->Contact_BusinessPhoneLabel(); });
    }
    STDMETHODIMP get_BusinessPhone2Label(BSTR* result) noexcept override {
        return answer(L"Error (BusinessPhone2Label): ", result,
                      [&] { return self()->Contact_BusinessPhone2Label(); });
    }
    STDMETHODIMP get_MobilePhoneLabel(BSTR* result) noexcept override {
        return answer(L"Error (MobilePhoneLabel): ", result,
                      [&] { return self()->Contact_MobilePhoneLabel(); });
    }
    STDMETHODIMP get_HomePhoneLabel(BSTR* result) noexcept override {
        return answer(L"Error (HomePhoneLabel): ", result, [&] { return self()->Contact_HomePhoneLabel(); });
    }
    STDMETHODIMP get_PagerPhoneLabel(BSTR* result) noexcept override {
        return answer(L"Error (PagerPhoneLabel): ", result,
                      [&] { return self()->Contact_PagerPhoneLabel(); });
    }
    STDMETHODIMP get_OtherPhoneLabel(BSTR* result) noexcept override {
        return answer(L"Error (OtherPhoneLabel): ", result,
                      [&] { return self()->Contact_OtherPhoneLabel(); });
    }
    STDMETHODIMP get_AssistantPhoneLabel(BSTR* result) noexcept override {
        return answer(L"Error (AssistantPhoneLabel): ", result,
                      [&] { return self()->Contact_AssistantPhoneLabel(); });
    }
    STDMETHODIMP get_Emails(IDispatch** result) noexcept override {
        return answer(L"Error (Emails): ", result, [&] { return self()->Contact_Emails(); });
    }
    STDMETHODIMP put_MainEmail(BSTR value) noexcept override {
        return perform(L"Error (MainEmail): ", [&] { self()->Contact_MainEmail(textOf(value)); });
    }
    STDMETHODIMP get_MainEmail(BSTR* result) noexcept override {
        return answer(L"Error (MainEmail): ", result, [&] { return self()->Contact_MainEmail(); });
    }
    STDMETHODIMP get_ContactId(BSTR* result) noexcept override {
        return answer(L"Error (ContactId): ", result, [&] { return self()->Contact_ContactId(); });
    }
    STDMETHODIMP get_StoreId(BSTR* result) noexcept override {
        return answer(L"Error (StoreId): ", result, [&] { return self()->Contact_StoreId(); });
    }
    STDMETHODIMP get_MainPhoneNumber(BSTR* result) noexcept override {
        return answer(L"Error (MainPhoneNumber): ", result,
                      [&] { return self()->Contact_MainPhoneNumber(); });
    }
    STDMETHODIMP put_MainPhoneNumber(BSTR value) noexcept override {
        return perform(L"Error (MainPhoneNumber): ", [&] { self()->Contact_MainPhoneNumber(textOf(value)); });
    }
    STDMETHODIMP get_MainHomeNumber(BSTR* result) noexcept override {
        return answer(L"Error (MainHomeNumber): ", result, [&] { return self()->Contact_MainHomeNumber(); });
    }
    STDMETHODIMP put_MainHomeNumber(BSTR value) noexcept override {
        return perform(L"Error (MainHomeNumber): ", [&] { self()->Contact_MainHomeNumber(textOf(value)); });
    }
    STDMETHODIMP get_CompanyName(BSTR* result) noexcept override {
        return answer(L"Error (CompanyName): ", result, [&] { return self()->Contact_CompanyName(); });
    }
    STDMETHODIMP put_SpareText(BSTR value) noexcept override {
        return perform(L"Error (SpareText): ", [&] { self()->Contact_SpareText(textOf(value)); });
    }
    STDMETHODIMP get_PhotoURL(BSTR* result) noexcept override {
        return answer(L"Error (PhotoURL): ", result, [&] { return self()->Contact_PhotoURL(); });
    }
    STDMETHODIMP put_PhotoURL(BSTR value) noexcept override {
        return perform(L"Error (PhotoURL): ", [&] { self()->Contact_PhotoURL(textOf(value)); });
    }
    STDMETHODIMP get_PhoneNumbers(IDispatch** result) noexcept override {
        return answer(L"Error (PhoneNumbers): ", result, [&] { return self()->Contact_PhoneNumbers(); });
    }
    STDMETHODIMP get_LastName(BSTR* result) noexcept override {
        return answer(L"Error (LastName): ", result, [&] { return self()->Contact_LastName(); });
    }
    STDMETHODIMP get_FirstName(BSTR* result) noexcept override {
        return answer(L"Error (FirstName): ", result, [&] { return self()->Contact_FirstName(); });
    }
    STDMETHODIMP get_FullName(BSTR* result) noexcept override {
        return answer(L"Error (FullName): ", result, [&] { return self()->Contact_FullName(); });
    }
    STDMETHODIMP put_FullName(BSTR value) noexcept override {
        return perform(L"Error (FullName): ", [&] { self()->Contact_FullName(textOf(value)); });
    }
    STDMETHODIMP get_NotInPIM(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (NotInPIM): ", result, [&] { return self()->Contact_NotInPIM(); });
    }
    STDMETHODIMP get_PersonalData(VARIANT* result) noexcept override {
        return answer(L"Error (PersonalData): ", result, [&] { return self()->Contact_PersonalData(); });
    }
    STDMETHODIMP put_PersonalData(VARIANT value) noexcept override {
        return perform(L"Error (PersonalData): ", [&] { self()->Contact_PersonalData(given(value)); });
    }
    STDMETHODIMP Show() noexcept override {
        return perform(L"Error (Show): ", [&] { self()->Contact_Show(); });
    }
    STDMETHODIMP get_IsSelected(VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (IsSelected): ", result, [&] { return self()->Contact_IsSelected(); });
    }
    STDMETHODIMP IsEqual(::Contact* other, VARIANT_BOOL* result) noexcept override {
        return answer(L"Error (IsEqual): ", result,
                      [&] { return self()->Contact_IsEqual(Com<::Contact>::share(other)); });
    }
    STDMETHODIMP ExecuteCommand(BSTR command, VARIANT* result) noexcept override {
        return answer(L"Error (ExecuteCommand): ", result,
                      [&] { return self()->Contact_ExecuteCommand(textOf(command)); });
    }

  private:
    using Border<Self, ::Contact>::answer;
    using Border<Self, ::Contact>::perform;
    using Border<Self, ::Contact>::self;
};

}  // namespace zelbar
