#include "actions/cActionProperty.h"

namespace zelbar {

void cActionProperty::setValues(const Variant& values) noexcept {
    try {
        values_ = values;
    } catch (...) {
        border::trapped(L"Error (Values - Let): ");
    }
}

void cActionProperty::ActionProperty_ValueIndex(short index) {
    if (propertyType_ != kListSetting) return;
    const auto choices = values_.texts();
    if (index < 0 || static_cast<size_t>(index) >= choices.size()) return;
    // Set, whatever is held: only what the client puts is refused while an array is.
    value_ = choices[static_cast<size_t>(index)];
    valueIndex_ = index;
}

void cActionProperty::ActionProperty_Value(Variant value) {
    if (value_.type() != (VT_ARRAY | VT_BSTR)) value_ = std::move(value);
}

}  // namespace zelbar
