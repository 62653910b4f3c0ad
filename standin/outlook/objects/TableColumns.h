#pragma once

#include <string>
#include <vector>

#include "standin/outlook/objects/OutlookObject.h"

namespace standin::outlook {

// Names of a new table's columns, by what the folder holds.
std::vector<std::wstring> defaultColumns(ItemType folderType);

// Whether a column of this name can be added. The object model's own properties go by their names as they are
// written there, others by a namespace, users' own fields with their type at the
// end.
bool isColumn(const std::wstring& name);

// Whether it shows more than an identifier.
bool showsContent(const std::wstring& column);

// What a column shows of an item: texts cut at 255 characters, Empty for what the item does not have.
// Switches: "TableIds" is "short" for a store whose rows have identifiers of their own, with the lasting ones
// in a column by namespace, and "short only" for one without; "TableMissing" is "error" for a store that
// reports an error for what is missing.
Value cellOf(const OutlookObject& reader, const ItemRecord& item, const std::wstring& column);

}  // namespace standin::outlook
