#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "standin/outlook/mailbox/Database.h"

namespace standin::outlook {

enum class EntryKind { Folder, Item };

// What an identifier names: a row of the given kind in the store with this unique id (32 digits).
struct EntryName {
    std::wstring storeUid;
    EntryKind kind;
    RowId row;
};

// Identifiers look as a personal folders file's do: upper-case hexadecimal, 48 digits for items and folders,
// some hundred for stores.
std::wstring entryIdOf(const EntryName& name);
std::wstring storeIdOf(std::wstring_view storeUid);

// Whether a text decodes to bytes at all; digits may be of either case.
bool isHexadecimal(std::wstring_view text);
// Empty when the bytes are no identifier of ours.
std::optional<EntryName> parseEntryId(std::wstring_view text);
std::optional<std::wstring> parseStoreId(std::wstring_view text);

std::wstring newStoreUid();

}  // namespace standin::outlook
