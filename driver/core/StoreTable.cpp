#include "core/StoreTable.h"

#include <algorithm>
#include <utility>

namespace zelbar {

bool StoreTable::add(Entry entry) {
    if (used_ == entries_.size()) return false;
    entries_[used_++] = std::move(entry);
    return true;
}

void StoreTable::clear() {
    *this = StoreTable();
}

std::wstring StoreTable::storeIdOf(std::wstring_view index) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.index == index; });
    return found == entries_.end() ? std::wstring() : found->storeId;
}

}  // namespace zelbar
