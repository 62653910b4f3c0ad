#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Object.h"
#include "automation/VariantGrid.h"

namespace filler {

inline constexpr std::size_t kMostColumns = 4;

/// One row, its texts in the order of the columns; a table with fewer columns leaves the last ones empty.
/// Null and an empty text are one, as to the driver.
using Record = std::array<std::wstring, kMostColumns>;
/// The same with texts that lie elsewhere.
using RecordView = std::array<std::wstring_view, kMostColumns>;

/// A table of the cache: its columns, and the statements that make it with its indexes.
struct TableLayout {
    const wchar_t* name;
    std::span<const wchar_t* const> columns;
    std::span<const wchar_t* const> definition;
};

/// Stores: Index, StoreID.
const TableLayout& storeLayout();
/// Numbers: Name, PhoneNumber, EntryId, StoreID (the store's Index).
const TableLayout& numberLayout();

/// The rows of one table, walked once from first to last. Every member throws a Fault.
class CacheTable {
  public:
    /// Thousands of rows are read in one call; or rows can be removed; or added, to a table that seems empty.
    enum class Use { Read, Remove, Append };

    CacheTable(const zelbar::Object& database, const TableLayout& layout, Use use);
    ~CacheTable();
    CacheTable(const CacheTable&) = delete;
    CacheTable& operator=(const CacheTable&) = delete;

    bool atEnd() const;
    void next();
    /// The current row, until `next`; nothing when somebody has deleted it meanwhile.
    std::optional<RecordView> current();
    /// Deletes the current row; move on before the next read.
    void remove() const;
    void add(const RecordView& record) const;

  private:
    RecordView rowOfBlock();
    void readBlock();

    Use use_;
    zelbar::Object rows_;
    std::vector<zelbar::Object> fields_;
    Record record_;  // the current row's texts, as far as they do not lie in the block
    // Of a table opened to be read: rows that have been fetched, and the current one among them.
    std::unique_ptr<zelbar::VariantGrid> block_;
    std::size_t at_ = 0;
};

bool tableExists(const zelbar::Object& database, const TableLayout& layout);
void makeTable(const zelbar::Object& database, const TableLayout& layout);

}  // namespace filler
