#pragma once

#include <cstddef>

#include "automation/Variant.h"

namespace zelbar {

/// An array of columns by rows, as Outlook's GetArray and DAO's GetRows give it. What is no such array counts
/// as one without rows.
class VariantGrid {
  public:
    VariantGrid() = default;
    explicit VariantGrid(Variant array);
    VariantGrid(VariantGrid&& other) noexcept;
    ~VariantGrid();
    VariantGrid& operator=(VariantGrid&&) = delete;

    std::size_t rows() const { return rows_; }
    std::size_t columns() const { return columns_; }
    const VARIANT& cell(std::size_t row, std::size_t column) const { return cells_[row * columns_ + column]; }

  private:
    Variant array_;
    const VARIANT* cells_ = nullptr;
    std::size_t rows_ = 0;
    std::size_t columns_ = 0;
};

}  // namespace zelbar
