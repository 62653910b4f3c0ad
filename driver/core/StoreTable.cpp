#include "core/StoreTable.h"

#include <algorithm>
#include <utility>

namespace zelbar {

bool StoreTable::add(Entry entry) {
    if (entries_.size() == kEntries) return false;
    entries_.push_back(std::move(entry));
    return true;
}

auto StoreTable::at(int position) const -> Entry {
    const auto index = static_cast<size_t>(position) - 1;
    return index < entries_.size() ? entries_[index] : Entry();
}

std::wstring StoreTable::storeIdOf(std::wstring_view index) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(),
                                    [&](const Entry& entry) { return entry.index == index; });
    return found == entries_.end() ? std::wstring() : found->storeId;
}

}  // namespace zelbar
