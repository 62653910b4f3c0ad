#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "export/ContactCopy.h"

namespace zelbar {

/// Which contact of the folder stands for which row of the directory, and so what is to be done.
struct ExportPlan {
    /// For each contact its row; nothing when the row is gone.
    std::vector<std::optional<size_t>> rowOfContact;
    /// The rows without a contact, in their order. Rows without a key cannot be found again and are left out.
    std::vector<size_t> missing;
    /// Contacts that share a row and are filed under its page: the same employee twice or more often, each
    /// group in the folder's order. One whose category its user has changed is in none.
    std::vector<std::vector<size_t>> doubles;
};

/// An employee may be on both pages and so have two contacts with one key; the categories tell them apart. A
/// contact changes to the other page's row when that has no contact of its own. Copies beyond the number of
/// rows (a folder that was initialised twice, or filled by two computers at once) follow the row of their
/// page. A contact's row is gone when the directory does not have the employee, or no longer on the page that
/// the contact is of.
ExportPlan planExport(const std::vector<ExportedContact>& contacts, const std::vector<EmployeeRow>& rows,
                      const ExportCategories& categories);

}  // namespace zelbar
