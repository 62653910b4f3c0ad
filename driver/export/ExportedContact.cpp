#include "export/ExportedContact.h"

#include <limits>

#include "automation/Fault.h"
#include "automation/OutlookFaults.h"
#include "automation/Told.h"
#include "support/Settings.h"

namespace zelbar {

namespace {

/// Nothing unless the property holds a whole number that an employee can have. A text is not ours, whatever
/// it says.
std::optional<long> numberIn(const Object& userProperties, const wchar_t* name) {
    const Object property = userProperties.object(outlook::UserPropertyAt, name);
    if (!property) return {};
    const Variant value = property.get(outlook::Value);
    if (value.type() == VT_I4) return value.raw().lVal;
    if (value.type() != VT_R8) return {};
    const double number = value.raw().dblVal;
    using Limits = std::numeric_limits<long>;
    if (!(number >= Limits::min() && number <= Limits::max())) return {};
    const long whole = static_cast<long>(number);
    return static_cast<double>(whole) == number ? std::optional(whole) : std::nullopt;
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
    return ExportedContact{item.text(outlook::EntryID),
                           *employeeId,
                           numberIn(properties, kCategorieIdProperty),
                           toldText(item, outlook::Categories),
                           {}};
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
