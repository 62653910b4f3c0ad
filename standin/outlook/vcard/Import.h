#pragma once

#include <filesystem>

#include "standin/outlook/mailbox/Mailbox.h"

namespace standin::outlook::vcard {

// Adds all contacts of an address book to a folder, all or none. Returns how many there were.
// Throws Malformed, std::runtime_error for a file that cannot be read, or DatabaseError.
int importFile(Mailbox& mailbox, RowId folder, const std::filesystem::path& file);

}  // namespace standin::outlook::vcard
