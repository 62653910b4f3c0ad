#pragma once

#include <optional>
#include <string>

#include "automation/Object.h"
#include "export/ExportMapping.h"

namespace zelbar {

/// A contact of the export folder that the export has made, as it is in Outlook.
struct ExportedContact {
    std::wstring entryId;
    long employeeId = 0;
    std::optional<long> categorieId;
    std::wstring categories;
    /// Nothing for what may not be read.
    ByColumn<std::optional<std::wstring>> texts;
};

/// Whether the e-mail addresses in Outlook may be touched: by the user's settings, until Outlook's user
/// refuses, who is then not asked again.
class AddressAccess {
  public:
    bool allowed() const;
    void refused() { refused_ = true; }

  private:
    bool refused_ = false;
};

/// Reads an item of the folder; nothing unless it is a contact with the number of an employee among its user
/// properties. Throws when Outlook does not answer.
std::optional<ExportedContact> readExportedContact(const Object& item, AddressAccess& addresses);

}  // namespace zelbar
