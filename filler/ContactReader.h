#pragma once

#include <string>
#include <vector>

#include "automation/Object.h"

namespace filler {

/// What the cache keeps of one contact.
struct Contact {
    std::wstring entryId;
    std::wstring name;
    std::vector<std::wstring> numbers;  ///< As stored; may be empty.
};

/// Reads a contact item whose identifier is known. Throws a Fault. Names are asked for only where there is a
/// number: without one nothing of the contact is stored. Each property is a call of its own; only Outlook
/// 2007 and later could give several at once.
Contact readContact(const zelbar::Object& item, std::wstring entryId);

}  // namespace filler
