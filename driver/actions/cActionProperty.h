#pragma once

#include <string>
#include <utility>

#include "com/ActionPropertyBorder.h"

namespace zelbar {

/// What kind of value a setting holds, as automation numbers the kinds.
inline constexpr short kTextSetting = VT_BSTR;
inline constexpr short kBooleanSetting = VT_BOOL;
/// The value is one entry of a list of texts.
inline constexpr short kListSetting = VT_ARRAY | VT_BSTR;

/// One setting of a call action. It lives as long as anyone holds it, with or without its action.
class cActionProperty final : public ActionPropertyBorder<cActionProperty> {
  public:
    // What only the driver sets.
    void setPropertyName(std::wstring name) { propertyName_ = std::move(name); }
    void setPropertyType(short type) { propertyType_ = type; }
    /// The choices of a list setting, an array of texts.
    void setValues(const Variant& values) noexcept;

    // The members of the interface.
    void ActionProperty_Key(std::wstring key) { key_ = std::move(key); }
    std::wstring ActionProperty_Key() const { return key_; }
    std::wstring ActionProperty_PropertyName() const { return propertyName_; }
    Variant ActionProperty_Values() const { return values_; }
    /// Chooses an entry of a list; an index outside of it, or a setting of another kind, changes nothing.
    void ActionProperty_ValueIndex(short index);
    short ActionProperty_ValueIndex() const { return valueIndex_; }
    Variant ActionProperty_Value() const { return value_; }
    /// Any value is taken as it is, except where the value held is itself an array of texts. A list's index
    /// stays, so it need not tell which entry is shown.
    void ActionProperty_Value(Variant value);
    short ActionProperty_PropertyType() const { return propertyType_; }

  private:
    std::wstring key_;
    std::wstring propertyName_;
    Variant value_;
    Variant values_;
    short valueIndex_ = 0;
    short propertyType_ = 0;
};

}  // namespace zelbar
