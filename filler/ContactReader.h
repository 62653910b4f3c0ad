#pragma once

#include <functional>
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

/// A contact whose properties `read` gives by their names. Names are asked for only where there is a number:
/// without one nothing of the contact is stored. What `read` throws ends it.
Contact readContact(std::wstring entryId, const std::function<std::wstring(const zelbar::Member&)>& read);

/// Reads a contact item whose identifier is known; each property is a call of its own. Throws a Fault.
Contact readContact(const zelbar::Object& item, std::wstring entryId);

}  // namespace filler
