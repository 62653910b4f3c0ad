#include "export/UserContent.h"

#include <algorithm>

#include "automation/Fault.h"
#include "export/CategoryList.h"
#include "support/TelephoneNumbers.h"

namespace zelbar {

namespace {

/// Fields of a contact that the directory never fills, telephone numbers aside.
constexpr Member kUserFields[] = {
    {L"FileAs"},
    {L"Title"},
    {L"MiddleName"},
    {L"Suffix"},
    {L"NickName"},
    {L"Initials"},
    {L"CompanyName"},
    {L"JobTitle"},
    {L"Profession"},
    {L"OfficeLocation"},
    {L"ManagerName"},
    {L"AssistantName"},
    {L"Spouse"},
    {L"Children"},
    {L"Hobby"},
    {L"Language"},
    {L"Gender"},
    {L"Birthday"},
    {L"Anniversary"},
    {L"BusinessAddress"},
    {L"HomeAddress"},
    {L"OtherAddress"},
    {L"WebPage"},
    {L"PersonalHomePage"},
    {L"FTPSite"},
    {L"IMAddress"},
    {L"NetMeetingAlias"},
    {L"InternetFreeBusyAddress"},
    {L"ComputerNetworkName"},
    {L"Account"},
    {L"CustomerID"},
    {L"GovernmentIDNumber"},
    {L"OrganizationalIDNumber"},
    {L"ReferredBy"},
    {L"Mileage"},
    {L"User1"},
    {L"User2"},
    {L"User3"},
    {L"User4"},
    {L"Sensitivity"},
};
constexpr Member kGuardedFields[] = {outlook::Body, outlook::Email2Address, outlook::Email3Address};

bool isUnset(const Variant& value) {
    constexpr double kNoDate = 949998;  // 1 January 4501
    switch (value.type()) {
        case VT_DATE:
            return value.raw().date == kNoDate;
        case VT_I4:
            return value.raw().lVal == 0;
        default:
            return value.isNothing();
    }
}

/// Empty for a field that this version of Outlook does not have.
std::wstring textIfAny(const Object& item, const Member& field) {
    constexpr long kNoSuchMember = 438;
    try {
        const Variant value = item.get(field);
        return isUnset(value) ? std::wstring() : value.text();
    } catch (const Fault& fault) {
        if (fault.number != kNoSuchMember) throw;
        return {};
    }
}

bool isOfDirectory(const Member& field, const EmployeeRow& row) {
    for (size_t i = 0; i < kExportedColumnCount; ++i)
        if (std::wstring_view(field.name) == kExportedColumns[i].field.name) return row.texts[i].has_value();
    return false;
}

std::wstring ownCategories(const ExportedContact& contact, const ExportCategories& categories) {
    std::vector<std::wstring> names = splitCategories(contact.categories);
    std::erase(names, categories.phoneSets);
    std::erase(names, categories.employees);
    std::sort(names.begin(), names.end());
    std::wstring result;
    for (const std::wstring& name : names) result += name + L';';
    return result;
}

}  // namespace

std::optional<UserContent> UserContent::of(const Object& item, const ExportedContact& contact,
                                           const EmployeeRow& row, const ExportCategories& categories,
                                           AddressAccess& addresses) {
    UserContent content;
    const auto readGuardedInto = [&](const Member& field) {
        std::optional<std::wstring> text = readGuarded(item, field, addresses);
        if (text) content.texts_.push_back(std::move(*text));
        return text.has_value();
    };
    const auto readIfUsers = [&](const Member& field) {
        if (!isOfDirectory(field, row)) content.texts_.push_back(textIfAny(item, field));
    };
    // These first: where they may not be read, the many others need not be.
    for (const Member& field : kGuardedFields)
        if (!readGuardedInto(field)) return {};
    if (!isOfDirectory(outlook::Email1Address, row) && !readGuardedInto(outlook::Email1Address)) return {};
    content.texts_.push_back(ownCategories(contact, categories));
    for (const Member& field : kUserFields) readIfUsers(field);
    for (const TelephoneProperty& telephone : kTelephoneProperties) readIfUsers(telephone.member);
    for (const ExportedColumn& column : kExportedColumns)
        if (!column.isAddress) readIfUsers(column.field);
    const long stamps = contact.categorieId ? 2 : 1;
    content.hasMore_ = item.object(outlook::Attachments).integer(outlook::Count) > 0 ||
                       item.object(outlook::UserProperties).integer(outlook::Count) > stamps;
    return content;
}

bool UserContent::isWithin(const UserContent& other) const {
    return !hasMore_ && std::equal(texts_.begin(), texts_.end(), other.texts_.begin(), other.texts_.end(),
                                   [](const std::wstring& own, const std::wstring& theirs) {
                                       return own.empty() || own == theirs;
                                   });
}

}  // namespace zelbar
