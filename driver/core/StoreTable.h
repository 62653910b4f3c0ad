#pragma once

#include <string>
#include <string_view>
#include <vector>

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
    void clear() { entries_.clear(); }

    /// Entry 1 to 100; empty texts where none was filled.
    Entry at(int position) const;

    /// The store that an index stands for (exact comparison, first entry wins); empty when there is none.
    std::wstring storeIdOf(std::wstring_view index) const;

  private:
    std::vector<Entry> entries_;
};

}  // namespace zelbar
