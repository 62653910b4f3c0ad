#pragma once

#include <array>
#include <cstddef>

#include "automation/OutlookNames.h"

namespace zelbar {

/// One of the telephone properties of an Outlook contact.
struct TelephoneProperty {
    Member member;
    const wchar_t* labelKey;     ///< Numbered text of its label.
    const wchar_t* labelColumn;  ///< Column of the directory's label row that replaces it, or null.
};

/// All of them, in the order in which a contact's numbers are listed and its main number is chosen.
inline constexpr std::array<TelephoneProperty, 19> kTelephoneProperties{{
    {outlook::BusinessTelephoneNumber, L"#21002#", L"BusinessPhoneLabel"},
    {outlook::Business2TelephoneNumber, L"#21003#", L"BusinessPhone2Label"},
    {outlook::HomeTelephoneNumber, L"#21008#", L"HomePhoneLabel"},
    {outlook::Home2TelephoneNumber, L"#21009#", nullptr},
    {outlook::AssistantTelephoneNumber, L"#21000#", nullptr},
    {outlook::MobileTelephoneNumber, L"#21011#", L"MobilePhoneLabel"},
    {outlook::CarTelephoneNumber, L"#21005#", nullptr},
    {outlook::PrimaryTelephoneNumber, L"#21015#", nullptr},
    {outlook::CallbackTelephoneNumber, L"#21004#", nullptr},
    {outlook::CompanyMainTelephoneNumber, L"#21006#", nullptr},
    {outlook::ISDNNumber, L"#21010#", nullptr},
    {outlook::BusinessFaxNumber, L"#21001#", nullptr},
    {outlook::HomeFaxNumber, L"#21007#", nullptr},
    {outlook::OtherTelephoneNumber, L"#21012#", L"OtherPhoneLabel"},
    {outlook::OtherFaxNumber, L"#21013#", nullptr},
    {outlook::PagerNumber, L"#21014#", L"PagerPhoneLabel"},
    {outlook::RadioTelephoneNumber, L"#21016#", nullptr},
    {outlook::TelexNumber, L"#21017#", nullptr},
    {outlook::TTYTDDTelephoneNumber, L"#21018#", nullptr},
}};

/// How many of them, from the first, a unified search looks at: the business numbers.
inline constexpr size_t kUnifiedTelephoneProperties = 2;

}  // namespace zelbar
