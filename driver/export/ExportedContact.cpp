#include "export/ExportedContact.h"

#include "automation/Fault.h"
#include "automation/OutlookFaults.h"
#include "core/DriverState.h"
#include "export/ExportRun.h"
#include "support/Settings.h"

namespace zelbar {

namespace {

/// Nothing unless the property holds a whole number. A text is not ours, whatever it says.
std::optional<long> numberIn(const Object& userProperties, const wchar_t* name) {
    const Object property = userProperties.object(outlook::UserPropertyAt, name);
    if (!property) return {};
    const Variant value = property.get(outlook::Value);
    if (value.type() != VT_R8 && value.type() != VT_I4) return {};
    const long number = value.integer();
    const bool isWhole = value.type() == VT_I4 || static_cast<double>(number) == value.raw().dblVal;
    return isWhole ? std::optional(number) : std::nullopt;
}

std::optional<std::wstring> readAddress(const Object& item, const Member& field, AddressAccess& addresses) {
    if (!addresses.allowed()) return {};
    try {
        return item.text(field);
    } catch (const Fault& fault) {
        if (saysServerGone(fault)) throw;
        addresses.refused();
        driver().log.fault(L"Error (e-mail addresses of the export folder are left alone): ", fault);
        return {};
    }
}

}  // namespace

/// Nothing said is a yes here, unlike for the contacts that a search finds.
bool AddressAccess::allowed() const {
    return !refused_ && getSetting(settings::kNoEmailAddressAccess, L"0") == L"0";
}

std::optional<ExportedContact> readExportedContact(const Object& item, AddressAccess& addresses) {
    if (item.objectClass() != outlook::kContact) return {};
    const Object properties = item.object(outlook::UserProperties);
    const std::optional<long> employeeId = numberIn(properties, kEmployeeIdProperty);
    if (!employeeId) return {};
    ExportedContact contact{item.text(outlook::EntryID),
                            *employeeId,
                            numberIn(properties, kCategorieIdProperty),
                            item.text(outlook::Categories),
                            {}};
    for (size_t i = 0; i < kExportedColumnCount; ++i) {
        const ExportedColumn& column = kExportedColumns[i];
        contact.texts[i] = column.isAddress ? readAddress(item, column.field, addresses)
                                            : std::optional(item.text(column.field));
    }
    return contact;
}

}  // namespace zelbar
