#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "automation/Object.h"
#include "automation/VariantGrid.h"

namespace zelbar {

/// The message class of a contact, custom forms among them.
bool isContactClass(std::wstring_view messageClass);

/// Outlook's table of a folder: hundreds of items a call, without opening one.
class FolderTable {
  public:
    /// Names of columns; they outlive the table.
    using Names = std::vector<const wchar_t*>;

    /// A row, while it is taken.
    class Row {
      public:
        Row(const FolderTable& table, const VariantGrid& block, std::size_t row)
            : table_(table), block_(block), row_(row) {}

        /// As cellText; nothing also where the table has no such column.
        std::optional<std::wstring> text(std::wstring_view column) const;
        /// The value as it lies there; none where the table has no such column.
        const VARIANT* cell(std::wstring_view column) const;
        /// The identifier that lasts, as far as the row has one. Throws a Fault when it has none at all.
        std::wstring identifier() const;

      private:
        const FolderTable& table_;
        const VariantGrid& block_;
        std::size_t row_;
    };

    /// Opens a table with these columns and the identifiers. Throws a Fault when there are no tables, or one
    /// of the needed columns is refused.
    FolderTable(const Object& folder, const Names& needed, const Names& optional);

    /// The next rows; none at the end.
    VariantGrid next() const;

    /// Takes every item once, and then looks whether the items are still those: how many they are, or nothing
    /// when they have changed meanwhile, so that one may have been passed over. `fetch` gives the table's
    /// `next`.
    template <class Fetch, class Take>
    std::optional<std::size_t> walk(Fetch&& fetch, Take&& take) {
        std::unordered_set<std::wstring> seen;
        forEachRow(fetch, [&](const Row& row) {
            if (seen.insert(row.identifier()).second) take(row);
        });
        const std::size_t count = seen.size();
        bool isSame = true;
        setColumns({}, {});
        forEachRow(fetch, [&](const Row& row) { isSame = seen.erase(row.identifier()) == 1 && isSame; });
        return isSame && seen.empty() ? std::optional(count) : std::nullopt;
    }

  private:
    /// Puts the table before its first row.
    void setColumns(const Names& needed, const Names& optional);
    void add(const wchar_t* name);
    /// A column that there may not be.
    void tryAdd(const wchar_t* name);

    template <class Fetch, class Take>
    void forEachRow(Fetch&& fetch, Take&& take) {
        while (true) {
            const VariantGrid block = fetch();
            if (block.rows() == 0) return;
            for (std::size_t row = 0; row < block.rows(); ++row) take(Row(*this, block, row));
        }
    }

    Object table_;
    Object columns_;
    std::unordered_map<std::wstring_view, std::size_t> positions_;
};

}  // namespace zelbar
