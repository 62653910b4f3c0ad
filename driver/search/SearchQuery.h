#pragma once

#include <string>

#include "automation/Object.h"

namespace zelbar {

/// The query for a search: the cache's rows whose name or number is like the text, by name. Empty for a kind
/// of search that there is not.
std::wstring searchQuery(long searchKind, const std::wstring& searchText);

/// A recordset's count in the 16 bits that clients get. Throws the overflow fault when it does not fit.
short narrowedCount(const Object& recordset);

}  // namespace zelbar
