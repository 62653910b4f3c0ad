#pragma once

#include <optional>
#include <string>

#include "automation/FolderTable.h"
#include "automation/Object.h"
#include "export/ExportMapping.h"
#include "support/FLog.h"

namespace zelbar {

/// A contact of the export folder that the export has made, as it is in Outlook.
struct ExportedContact {
    /// Who has told all this: the item itself, the folder's table, or nobody yet but its identifier.
    enum Source { Item, Table, Unread };

    std::wstring entryId;
    long employeeId = 0;
    std::optional<long> categorieId;
    std::wstring categories;
    /// Nothing for what has not been, or may not be read.
    ByColumn<std::optional<std::wstring>> texts;
    Source source = Item;
};

/// Whether the e-mail addresses in Outlook may be touched: by the user's settings, until Outlook's user
/// refuses, who is then not asked again.
class AddressAccess {
  public:
    explicit AddressAccess(FLog& log) : log_(log) {}

    bool allowed() const;
    void refused(const Fault& fault);

  private:
    FLog& log_;
    bool refused_ = false;
};

/// Whose contact an item of the folder is, its texts not read yet; nothing unless it is a contact with the
/// number of an employee among its user properties. Throws when Outlook does not answer.
std::optional<ExportedContact> identifyExported(const Object& item);

/// Reads the contact's texts. Throws when Outlook does not answer; what has been read by then is there.
void readTexts(const Object& item, ExportedContact& contact, AddressAccess& addresses);

/// What a table of the folder tells of an item: all of a contact with the number of an employee, or nothing,
/// where only the item can tell. `withAddresses` says whether the table has their column.
ExportedContact tellExported(const FolderTable::Row& row, bool withAddresses);

/// A field that Outlook may guard; nothing when it may not be read.
std::optional<std::wstring> readGuarded(const Object& item, const Member& field, AddressAccess& addresses);

}  // namespace zelbar
