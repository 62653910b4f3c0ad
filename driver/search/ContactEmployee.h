#pragma once

#include <string>

#include "automation/Object.h"
#include "core/DirectoryDatabase.h"
#include "support/FLog.h"

namespace zelbar {

/// A contact's link to the directory of employees: its row there, and the row of the phone labels. Contacts
/// are linked by the user property that the export folder gives them.
class ContactEmployee {
  public:
    ContactEmployee(FLog& log, DirectoryDatabase& directory) : log_(log), directory_(directory) {}
    ContactEmployee(const ContactEmployee&) = delete;
    ContactEmployee& operator=(const ContactEmployee&) = delete;
    /// Closes the rows.
    ~ContactEmployee();

    /// Looks for the link on an Outlook item and for its row. Every failure leaves the contact without a
    /// link.
    void link(const Object& item) noexcept;

    /// True when the directory has a row for the contact.
    bool exists() const { return exists_; }

    /// A column of the employee's row, or of the label row; empty when there is none.
    std::wstring column(const wchar_t* name) const noexcept;
    std::wstring label(const wchar_t* name) const noexcept;

  private:
    void open(long employeeId);

    FLog& log_;
    DirectoryDatabase& directory_;
    Object employee_;
    Object labels_;
    bool exists_ = false;
};

/// The item's user property that names the employee, as a text; empty when the item has none.
std::wstring employeeIdOf(const Object& item);

}  // namespace zelbar
