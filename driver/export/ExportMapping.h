#pragma once

#include <array>
#include <iterator>

#include "automation/OutlookNames.h"

/// What of the directory goes where in Outlook.
namespace zelbar {

/// Where a row was found, which decides what the contact is filed as.
enum class ExportMode { PhoneSet, Employee };

/// One of the supervision pages that are exported, in their order.
struct ExportPage {
    ExportMode mode;
    const wchar_t* sql;
    /// The category of the page's contacts, as a numbered text.
    const wchar_t* category;
};

inline constexpr ExportPage kExportPages[] = {
    {ExportMode::PhoneSet,
     L"Select * from BLFPagesContents, Employees where Employees.EmployeeId = BLFPagesContents.EmployeeId "
     L"and BindToEmployee = 0 and BLFpageId = 1",
     L"#07088#Phone sets"},
    {ExportMode::Employee,
     L"Select * from BLFPagesContents, Employees where Employees.EmployeeId = BLFPagesContents.EmployeeId "
     L"and BLFpageId = 2",
     L"#07060#Employees"},
};

inline constexpr const wchar_t* categoryTextOf(ExportMode mode) {
    return kExportPages[static_cast<size_t>(mode)].category;
}

/// One column of the table `Employees` and the contact field that it fills.
struct ExportedColumn {
    const wchar_t* column;
    Member field;
    /// Outlook asks its user before it lets a program read this field.
    bool isAddress = false;
};

inline constexpr ExportedColumn kExportedColumns[] = {
    {L"FirstName", outlook::FirstName},
    {L"LastName", outlook::LastName},
    {L"Department", outlook::Department},
    {L"EmailAddress", outlook::Email1Address, true},
    {L"BusinessPhone", outlook::BusinessTelephoneNumber},
    {L"BusinessPhone2", outlook::Business2TelephoneNumber},
    {L"MobilePhone", outlook::MobileTelephoneNumber},
    {L"HomePhone", outlook::HomeTelephoneNumber},
    {L"PagerPhone", outlook::PagerNumber},
    {L"OtherPhone", outlook::OtherTelephoneNumber},
    {L"BillingInformation", outlook::BillingInformation},
};
inline constexpr size_t kExportedColumnCount = std::size(kExportedColumns);

/// One value for each exported column, in the order of the table.
template <class Value>
using ByColumn = std::array<Value, kExportedColumnCount>;

/// The columns behind the two user properties that every exported contact carries, and these.
inline constexpr wchar_t kEmployeeKeyColumn[] = L"Employees.EmployeeID";
inline constexpr wchar_t kCategoryColumn[] = L"Categories";
inline constexpr wchar_t kEmployeeIdProperty[] = L"EmployeeId";
inline constexpr wchar_t kCategorieIdProperty[] = L"CategorieId";

/// The same two as columns of Outlook's table, which gives them only where they are numbers.
inline constexpr wchar_t kEmployeeIdTableColumn[] =
    L"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/EmployeeId/0x00000005";
inline constexpr wchar_t kCategorieIdTableColumn[] =
    L"http://schemas.microsoft.com/mapi/string/{00020329-0000-0000-C000-000000000046}/CategorieId/0x00000005";

}  // namespace zelbar
