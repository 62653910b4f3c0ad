#pragma once

#include <string>

#include "filler/AddressBook.h"

namespace filler {

/// Deletes the photos that the driver has saved in a folder for contacts that are not in the address book.
/// Only files named as the driver names them are touched; one that cannot be deleted stays.
void removeOldPhotos(const std::wstring& folder, const AddressBook& book);

}  // namespace filler
