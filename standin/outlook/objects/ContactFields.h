#pragma once

#include <oaidl.h>
#include <windows.h>

namespace standin::outlook {

// A property of a contact that is a plain text, with Outlook's number for it.
struct FieldName {
    const wchar_t* name;
    DISPID id;
};

inline constexpr FieldName kNameParts[] = {
    {L"FirstName", 0x3A06}, {L"LastName", 0x3A11}, {L"MiddleName", 0x3A44},
    {L"Title", 0x3A45},     {L"Suffix", 0x3A05},   {L"CompanyName", 0x3A16},
};

inline constexpr FieldName kTelephones[] = {
    {L"BusinessTelephoneNumber", 0x3A08},
    {L"Business2TelephoneNumber", 0x3A1B},
    {L"HomeTelephoneNumber", 0x3A09},
    {L"Home2TelephoneNumber", 0x3A2F},
    {L"AssistantTelephoneNumber", 0x3A2E},
    {L"MobileTelephoneNumber", 0x3A1C},
    {L"CarTelephoneNumber", 0x3A1E},
    {L"PrimaryTelephoneNumber", 0x3A1A},
    {L"CallbackTelephoneNumber", 0x3A02},
    {L"CompanyMainTelephoneNumber", 0x3A57},
    {L"ISDNNumber", 0x3A2D},
    {L"BusinessFaxNumber", 0x3A24},
    {L"HomeFaxNumber", 0x3A25},
    {L"OtherTelephoneNumber", 0x3A1F},
    {L"OtherFaxNumber", 0x3A23},
    {L"PagerNumber", 0x3A21},
    {L"RadioTelephoneNumber", 0x3A1D},
    {L"TelexNumber", 0x3A2C},
    {L"TTYTDDTelephoneNumber", 0x3A4B},
};

inline constexpr FieldName kEmails[] = {
    {L"Email1Address", 0x8083},
    {L"Email2Address", 0x8093},
    {L"Email3Address", 0x80A3},
};

inline constexpr FieldName kTextFields[] = {
    {L"Department", 0x3A18},  {L"JobTitle", 0x3A17},      {L"NickName", 0x3A4F}, {L"Profession", 0x3A46},
    {L"ManagerName", 0x3A4E}, {L"AssistantName", 0x3A30}, {L"Spouse", 0x3A48},   {L"WebPage", 0x802B},
};

}  // namespace standin::outlook
