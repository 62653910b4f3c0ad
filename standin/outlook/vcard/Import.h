#pragma once

#include <filesystem>

#include "standin/outlook/mailbox/Mailbox.h"

namespace standin::outlook::vcard {

struct ImportReport {
    int contacts = 0;
    // Contact and what of it was left out, in words.
    std::vector<std::wstring> leftOut;
};

// Adds all contacts of an address book to a folder, all or none.
// Throws Malformed, std::runtime_error for a file that cannot be read, or DatabaseError.
ImportReport importFile(Mailbox& mailbox, RowId folder, const std::filesystem::path& file);

}  // namespace standin::outlook::vcard
