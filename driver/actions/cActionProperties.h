#pragma once

#include <string>
#include <vector>

#include "actions/cActionProperty.h"
#include "com/ActionPropertiesBorder.h"
#include "support/FLog.h"

namespace zelbar {

/// The settings of one action, in the order in which they were added.
class cActionProperties final : public ActionPropertiesBorder<cActionProperties> {
  public:
    /// Adds a new setting and returns it. One with an empty key can be reached by position only.
    Com<cActionProperty> Add(const std::wstring& key, const std::wstring& propertyName, const Variant& value,
                             short propertyType);
    /// Takes a setting out; part of the collection as it has always been, though no action drops one. Throws
    /// when there is none at that position or with that key.
    void Remove(const Variant& index);
    /// Takes over the values, then the chosen entries, of the settings with the same keys.
    void copyFrom(const cActionProperties& other);

    // The members of the interface. A text is a key in any letter case, anything else a position from 1.
    Com<cActionProperty> ActionProperties_Item(const Variant& index) const;
    long ActionProperties_Count() const { return static_cast<long>(entries_.size()); }
    Com<IUnknown> ActionProperties_NewEnum() const;

  private:
    /// A client may put another key into a setting; it stays under the one that it was added with.
    struct Entry {
        std::wstring key;
        Com<cActionProperty> property;
    };

    size_t positionOf(const Variant& index) const;

    std::vector<Entry> entries_;
};

/// A new, empty collection; none, with a line in the log, when it cannot be made.
Com<cActionProperties> makeActionProperties(FLog& log) noexcept;

}  // namespace zelbar
