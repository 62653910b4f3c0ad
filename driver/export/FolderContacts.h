#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "automation/FolderTable.h"
#include "export/ExportRun.h"
#include "export/ExportedContact.h"

namespace zelbar {

/// The export's contacts in their folder, as it was read: through Outlook's table where there is one that
/// cannot disturb anybody, else item by item. What the table says is good for leaving a contact as it is;
/// whatever is to be done about one is for its item to say.
class FolderContacts {
  public:
    FolderContacts(ExportRun& run, Object application, Object session, Object folder);

    /// The folder is only read. Throws when Outlook is gone, or does not answer.
    void read();

    /// Reads those contacts of these employees from their items that the table has told of, and forgets those
    /// that are not the export's. False when there are none left.
    bool confirm(const std::unordered_set<long>& employees);

    const std::vector<ExportedContact>& all() const { return contacts_; }
    const Object& folder() const { return folder_; }
    const Object& items() const { return items_; }
    Object opened(const ExportedContact& contact) const;

    /// Whether it is known of every item of the folder whose it is.
    bool allIdentified() const { return allIdentified_; }
    /// Whether the folder has stayed as it was while it was read, so that every item was met.
    bool keptStill() const { return keptStill_; }

  private:
    std::optional<std::wstring> readTable();
    bool takeTable();
    FolderTable openTable(bool withAddresses) const;
    void readItems();
    template <class Which>
    bool readFromItems(Which&& which);
    template <class Open>
    void readItem(size_t line, Open&& open);
    void beginItem(size_t index) const;
    long itemCount() const;

    ExportRun& run_;
    Object application_;
    Object session_;
    Object folder_;
    Object items_;
    std::wstring storeId_;
    std::vector<ExportedContact> contacts_;
    std::unordered_set<std::wstring> seen_;
    bool allIdentified_ = true;
    bool keptStill_ = false;
};

}  // namespace zelbar
