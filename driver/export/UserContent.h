#pragma once

#include <optional>
#include <string>
#include <vector>

#include "export/ContactCopy.h"

namespace zelbar {

/// What a contact holds beside what the directory decides: what its users have put there.
class UserContent {
  public:
    /// Reads it from the contact of a row; nothing when a part of it may not be read. Throws when Outlook
    /// does not answer.
    static std::optional<UserContent> of(const Object& item, const ExportedContact& contact,
                                         const EmployeeRow& row, const ExportCategories& categories,
                                         AddressAccess& addresses);

    /// Whether the other one has all of it. What cannot be compared (attachments, users' own fields) counts
    /// as different.
    bool isWithin(const UserContent& other) const;

  private:
    std::vector<std::wstring> texts_;
    bool hasMore_ = false;
};

}  // namespace zelbar
