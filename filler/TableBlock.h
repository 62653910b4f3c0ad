#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "filler/VariantGrid.h"

namespace filler {

/// Some rows of Outlook's table. At the table's end it may be an array without elements, or no array at all.
class TableBlock {
  public:
    explicit TableBlock(zelbar::Variant array) : grid_(std::move(array)) {}

    std::size_t rows() const { return grid_.rows(); }
    std::size_t columns() const { return grid_.columns(); }

    /// A cell's text, empty for a property that the item does not have; nothing where only the item can tell:
    /// the text may have been cut, or the table could not give it.
    std::optional<std::wstring> text(std::size_t row, std::size_t column) const;
    /// An identifier in a cell, as hexadecimal digits in upper case; empty for none.
    std::wstring identifier(std::size_t row, std::size_t column) const;

  private:
    VariantGrid grid_;
};

}  // namespace filler
