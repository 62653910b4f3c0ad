#include "automation/VariantGrid.h"

#include <windows.h>

#include <utility>

namespace zelbar {

namespace {

std::size_t extent(SAFEARRAY* array, UINT dimension) {
    LONG first = 0, last = -1;
    if (FAILED(SafeArrayGetLBound(array, dimension, &first)) ||
        FAILED(SafeArrayGetUBound(array, dimension, &last)))
        return 0;
    return last < first ? 0 : static_cast<std::size_t>(last - first) + 1;
}

}  // namespace

VariantGrid::VariantGrid(Variant array) : array_(std::move(array)) {
    const VARIANT& raw = array_.raw();
    if (raw.vt != (VT_ARRAY | VT_VARIANT) || !raw.parray || SafeArrayGetDim(raw.parray) != 2) return;
    columns_ = extent(raw.parray, 1);
    rows_ = extent(raw.parray, 2);
    void* data = nullptr;
    if (rows_ == 0 || FAILED(SafeArrayAccessData(raw.parray, &data))) rows_ = 0;
    cells_ = static_cast<const VARIANT*>(data);
}

VariantGrid::VariantGrid(VariantGrid&& other) noexcept
    : array_(std::move(other.array_)),
      cells_(std::exchange(other.cells_, nullptr)),
      rows_(std::exchange(other.rows_, 0)),
      columns_(other.columns_) {}

VariantGrid::~VariantGrid() {
    if (cells_) SafeArrayUnaccessData(array_.raw().parray);
}

}  // namespace zelbar
