#include "actions/cActionProperties.h"

#include <algorithm>

#include "com/Enumerator.h"

namespace zelbar {

namespace {

bool sameKey(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(), static_cast<int>(b.size()),
                                TRUE) == CSTR_EQUAL;
}

}  // namespace

Com<cActionProperty> cActionProperties::Add(const std::wstring& key, const std::wstring& propertyName,
                                            const Variant& value, short propertyType) {
    auto property = makeObject<cActionProperty>();
    property->ActionProperty_Key(key);
    property->setPropertyName(propertyName);
    property->ActionProperty_Value(value);
    property->setPropertyType(propertyType);
    entries_.push_back({key, property});
    return property;
}

void cActionProperties::Remove(const Variant& index) {
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(positionOf(index)));
}

void cActionProperties::copyFrom(const cActionProperties& other) {
    for (const Entry& entry : other.entries_) {
        const auto mine = ActionProperties_Item(entry.key);
        mine->ActionProperty_Value(entry.property->ActionProperty_Value());
        mine->ActionProperty_ValueIndex(entry.property->ActionProperty_ValueIndex());
    }
}

Com<cActionProperty> cActionProperties::ActionProperties_Item(const Variant& index) const {
    return entries_[positionOf(index)].property;
}

Com<IUnknown> cActionProperties::ActionProperties_NewEnum() const {
    std::vector<Variant> properties;
    for (const Entry& entry : entries_) properties.emplace_back(Com<IDispatch>(entry.property));
    return makeEnumerator(std::move(properties));
}

size_t cActionProperties::positionOf(const Variant& index) const {
    size_t position = entries_.size();
    if (index.type() == VT_BSTR) {
        const std::wstring key = index.text();
        const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
            return !entry.key.empty() && sameKey(entry.key, key);
        });
        position = static_cast<size_t>(found - entries_.begin());
    } else if (const long number = index.integer(); number >= 1) {
        position = static_cast<size_t>(number) - 1;
    }
    if (position >= entries_.size()) throw runtimeFault(fault::kSubscriptOutOfRange);
    return position;
}

Com<cActionProperties> makeActionProperties(FLog& log) noexcept {
    try {
        return makeObject<cActionProperties>();
    } catch (...) {
        log.trace(L"Error in creating collection (ActionProperties)");
        return {};
    }
}

}  // namespace zelbar
