#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "automation/Object.h"
#include "export/EmployeeRows.h"
#include "export/ExportedContact.h"

namespace zelbar {

/// The categories of the two modes in the user's language.
struct ExportCategories {
    std::wstring phoneSets;
    std::wstring employees;

    const std::wstring& of(ExportMode mode) const {
        return mode == ExportMode::PhoneSet ? phoneSets : employees;
    }
};

/// What has to be written to make a contact the image of its row.
struct ContactChanges {
    std::vector<std::pair<const Member*, std::wstring>> fields;
    std::optional<long> categorieId;

    bool empty() const { return fields.empty() && !categorieId; }
};

/// How a contact differs from its row. The other categories that its user has given it stay.
ContactChanges changesFor(const ExportedContact& contact, const EmployeeRow& row,
                          const ExportCategories& categories);

/// Adds a contact for the row and saves it; nothing stays behind in the folder when that fails. Throws what
/// Outlook raises.
void addContact(const Object& items, const EmployeeRow& row, const ExportCategories& categories,
                const AddressAccess& addresses, FLog& log);

/// Writes the changes and saves the contact. Throws what Outlook raises.
void applyChanges(const Object& item, const ContactChanges& changes);

}  // namespace zelbar
