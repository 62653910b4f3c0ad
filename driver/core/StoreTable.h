#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zelbar {

/// The message stores that the cache covers, in the order of the cache's own table. Rows of the cache name a
/// store by its short index.
class StoreTable {
  public:
    static constexpr int kEntries = 100;

    struct Entry {
        std::wstring storeId;
        std::wstring index;
    };

    /// Fills the next entry. False when all are taken.
    bool add(Entry entry);
    void clear();

    /// Entry 1 to 100; empty texts where none was filled.
    const Entry& at(int position) const { return entries_[static_cast<size_t>(position) - 1]; }

    /// The store that an index stands for (exact comparison, first entry wins); empty when there is none.
    std::wstring storeIdOf(std::wstring_view index) const;

  private:
    std::array<Entry, kEntries> entries_;
    size_t used_ = 0;
};

}  // namespace zelbar
