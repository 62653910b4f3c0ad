#include "export/ExportedContact.h"

#include <limits>

#include "automation/Fault.h"
#include "automation/OutlookFaults.h"
#include "automation/Told.h"
#include "support/Settings.h"

namespace zelbar {

namespace {

/// Nothing unless it is a whole number that an employee can have.
std::optional<long> wholeNumber(double number) {
    using Limits = std::numeric_limits<long>;
    if (!(number >= Limits::min() && number <= Limits::max())) return {};
    const long whole = static_cast<long>(number);
    return static_cast<double>(whole) == number ? std::optional(whole) : std::nullopt;
}

/// As wholeNumber. A text is not ours, whatever it says.
std::optional<long> numberIn(const Object& userProperties, const wchar_t* name) {
    const Object property = userProperties.object(outlook::UserPropertyAt, name);
    if (!property) return {};
    const Variant value = property.get(outlook::Value);
    if (value.type() == VT_I4) return value.raw().lVal;
    return value.type() == VT_R8 ? wholeNumber(value.raw().dblVal) : std::nullopt;
}

std::optional<long> numberIn(const VARIANT* cell) {
    return cell && cell->vt == VT_R8 ? wholeNumber(cell->dblVal) : std::nullopt;
}

}  // namespace

/// Nothing said is a yes here, unlike for the contacts that a search finds.
bool AddressAccess::allowed() const {
    return !refused_ && getSetting(settings::kNoEmailAddressAccess, L"0") == L"0";
}

void AddressAccess::refused(const Fault& fault) {
    refused_ = true;
    log_.fault(L"Error (e-mail addresses of the export folder are left alone): ", fault);
}

std::optional<ExportedContact> identifyExported(const Object& item) {
    if (item.objectClass() != outlook::kContact) return {};
    const Object properties = item.object(outlook::UserProperties);
    const std::optional<long> employeeId = numberIn(properties, kEmployeeIdProperty);
    if (!employeeId) return {};
    return ExportedContact{
        item.text(outlook::EntryID),         *employeeId, numberIn(properties, kCategorieIdProperty),
        toldText(item, outlook::Categories), {},          ExportedContact::Item};
}

ExportedContact tellExported(const FolderTable::Row& row, bool withAddresses) {
    ExportedContact unread;
    unread.entryId = row.identifier();
    unread.source = ExportedContact::Unread;
    const auto kind = row.text(outlook::MessageClass.name), categories = row.text(outlook::Categories.name);
    const auto employeeId = numberIn(row.cell(kEmployeeIdTableColumn));
    if (!kind || !isContactClass(*kind) || !categories || !employeeId) return unread;
    ExportedContact contact{unread.entryId, *employeeId, numberIn(row.cell(kCategorieIdTableColumn)),
                            *categories,    {},          ExportedContact::Table};
    for (size_t i = 0; i < kExportedColumnCount; ++i) {
        const ExportedColumn& column = kExportedColumns[i];
        if (column.isAddress && !withAddresses) continue;
        contact.texts[i] = row.text(column.field.name);
        if (!contact.texts[i]) return unread;
    }
    return contact;
}

void readTexts(const Object& item, ExportedContact& contact, AddressAccess& addresses) {
    for (size_t i = 0; i < kExportedColumnCount; ++i) {
        const ExportedColumn& column = kExportedColumns[i];
        contact.texts[i] = column.isAddress ? readGuarded(item, column.field, addresses)
                                            : std::optional(item.text(column.field));
    }
}

std::optional<std::wstring> readGuarded(const Object& item, const Member& field, AddressAccess& addresses) {
    if (!addresses.allowed()) return {};
    try {
        return item.text(field);
    } catch (const Fault& fault) {
        if (saysServerGone(fault)) throw;
        addresses.refused(fault);
        return {};
    }
}

}  // namespace zelbar
