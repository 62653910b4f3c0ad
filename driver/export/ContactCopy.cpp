#include "export/ContactCopy.h"

#include "export/CategoryList.h"

namespace zelbar {

namespace {

/// Adding a property that is there gives that one.
void setNumber(const Object& userProperties, const wchar_t* name, long number) {
    userProperties.object(outlook::AddUserProperty, name, outlook::kNumberProperty)
        .put(outlook::Value, static_cast<double>(number));
}

void copyToContactItem(const Object& item, const EmployeeRow& row, const ExportCategories& categories,
                       const AddressAccess& addresses) {
    for (size_t i = 0; i < kExportedColumnCount; ++i) {
        const ExportedColumn& column = kExportedColumns[i];
        const std::optional<std::wstring>& text = row.texts[i];
        if (!text || text->empty() || (column.isAddress && !addresses.allowed())) continue;
        item.put(column.field, *text);
    }
    item.put(outlook::Categories, categories.of(row.mode));
}

}  // namespace

ContactChanges changesFor(const ExportedContact& contact, const EmployeeRow& row,
                          const ExportCategories& categories) {
    ContactChanges changes;
    for (size_t i = 0; i < kExportedColumnCount; ++i)
        if (contact.texts[i] && row.texts[i] && *contact.texts[i] != *row.texts[i])
            changes.fields.emplace_back(&kExportedColumns[i].field, *row.texts[i]);
    const bool isPhoneSet = row.mode == ExportMode::PhoneSet;
    std::wstring filed = refiled(contact.categories, categories.of(row.mode),
                                 isPhoneSet ? categories.employees : categories.phoneSets);
    if (filed != contact.categories) changes.fields.emplace_back(&outlook::Categories, std::move(filed));
    if (row.categorieId && row.categorieId != contact.categorieId) changes.categorieId = row.categorieId;
    return changes;
}

void addContact(const Object& items, const EmployeeRow& row, const ExportCategories& categories,
                const AddressAccess& addresses, FLog& log) {
    const Object item = items.object(outlook::AddContact, outlook::kContactItemType);
    const Object properties = item.object(outlook::UserProperties);
    if (row.employeeId) setNumber(properties, kEmployeeIdProperty, *row.employeeId);
    if (row.categorieId) setNumber(properties, kCategorieIdProperty, *row.categorieId);
    log.trace(L"Before copyToContactItem c, rst, 1");
    copyToContactItem(item, row, categories, addresses);
    item.call(outlook::Save);
}

void applyChanges(const Object& item, const ContactChanges& changes) {
    for (const auto& [field, text] : changes.fields) item.put(*field, text);
    if (changes.categorieId)
        setNumber(item.object(outlook::UserProperties), kCategorieIdProperty, *changes.categorieId);
    item.call(outlook::Save);
}

}  // namespace zelbar
