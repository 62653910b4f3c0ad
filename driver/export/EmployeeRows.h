#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/EmployeesDatabase.h"
#include "export/ExportMapping.h"

namespace zelbar {

/// One row of the directory that is to be a contact.
struct EmployeeRow {
    ExportMode mode = ExportMode::Employee;
    /// Nothing for Null and for what is no whole number.
    std::optional<long> employeeId;
    std::optional<long> categorieId;
    /// Without blanks at the ends; Null is empty. Nothing for a column that the directory does not have.
    ByColumn<std::optional<std::wstring>> texts;
};

/// All rows of both queries in their order; both have been read to their ends without an error, else a fault
/// is thrown. `yield` is called now and then.
std::vector<EmployeeRow> readEmployeeRows(EmployeesDatabase& database, const std::function<void()>& yield);

}  // namespace zelbar
