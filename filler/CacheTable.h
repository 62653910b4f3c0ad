#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "automation/Object.h"

namespace filler {

/// One row, its texts in the order of the columns. Null and an empty text are one, as to the driver.
using Record = std::vector<std::wstring>;

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
    enum class Use { Read, Change };

    CacheTable(const zelbar::Object& database, const TableLayout& layout, Use use);
    ~CacheTable();
    CacheTable(const CacheTable&) = delete;
    CacheTable& operator=(const CacheTable&) = delete;

    bool atEnd() const;
    void next() const;
    /// The current row; nothing when somebody has deleted it meanwhile.
    std::optional<Record> current() const;
    /// Deletes the current row; move on before the next read. This and `add` are for tables opened to be
    /// changed.
    void remove() const;
    void add(const Record& record) const;

  private:
    zelbar::Object rows_;
    std::vector<zelbar::Object> fields_;
};

bool tableExists(const zelbar::Object& database, const TableLayout& layout);
void makeTable(const zelbar::Object& database, const TableLayout& layout);

}  // namespace filler
