#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "automation/Object.h"
#include "filler/TableBlock.h"

namespace filler {

inline constexpr zelbar::Member kMessageClass{L"MessageClass"};

/// Which column of a table holds which property.
class TableColumns {
  public:
    /// Gives a table the columns for whole contacts, or for identifiers alone, and puts it before its first
    /// row. Throws a Fault when it refuses one that is needed.
    static TableColumns forContacts(const zelbar::Object& table);
    static TableColumns forIdentifiers(const zelbar::Object& table);

    /// As TableBlock::text; nothing also where there is no such column.
    std::optional<std::wstring> text(const TableBlock& block, std::size_t row,
                                     const zelbar::Member& property) const;
    /// The identifier that lasts, as far as the row has one. Throws a Fault when it has none at all.
    std::wstring identifier(const TableBlock& block, std::size_t row) const;

  private:
    explicit TableColumns(const zelbar::Object& table);
    void add(const wchar_t* name);
    /// A column that there may not be.
    void tryAdd(const wchar_t* name);

    zelbar::Object columns_;
    std::map<std::wstring_view, std::size_t> positions_;
};

}  // namespace filler
