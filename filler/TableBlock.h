#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "automation/Variant.h"

namespace filler {

/// Some rows of a table, as Outlook's GetArray gives them: columns by rows. At the table's end it may be an
/// array without elements, or no array at all.
class TableBlock {
  public:
    explicit TableBlock(zelbar::Variant array);
    ~TableBlock();
    TableBlock(const TableBlock&) = delete;
    TableBlock& operator=(const TableBlock&) = delete;

    std::size_t rows() const { return rows_; }
    std::size_t columns() const { return columns_; }

    /// A cell's text, empty for a property that the item does not have; nothing where only the item can tell:
    /// the text may have been cut, or the table could not give it.
    std::optional<std::wstring> text(std::size_t row, std::size_t column) const;
    /// An identifier in a cell, as hexadecimal digits in upper case; empty for none.
    std::wstring identifier(std::size_t row, std::size_t column) const;

  private:
    const VARIANT& cell(std::size_t row, std::size_t column) const;

    zelbar::Variant array_;
    const VARIANT* cells_ = nullptr;
    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
};

}  // namespace filler
