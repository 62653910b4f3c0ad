#include "core/PhoneCache.h"

#include <algorithm>
#include <utility>

namespace zelbar {

namespace {

std::wstring upperCase(std::wstring text) {
    CharUpperBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

}  // namespace

void PhoneCache::add(const std::wstring& name, const std::wstring& number, short flag,
                     Com<::Contact> contact) {
    slots_[next_] = {upperCase(name), number, std::move(contact), flag};
    next_ = (next_ + 1) % kSlots;
}

void PhoneCache::clear() {
    slots_[next_] = {};
    next_ = 0;
    lastHit_ = nullptr;
}

Com<::Contact> PhoneCache::findByNumber(const std::wstring& number) {
    return find(&Slot::number, number);
}

Com<::Contact> PhoneCache::findByName(std::wstring& name) {
    name = upperCase(name);
    return find(&Slot::name, name);
}

Com<::Contact> PhoneCache::find(std::wstring Slot::*field, const std::wstring& value) {
    const auto found =
        std::find_if(slots_.begin(), slots_.end(), [&](const Slot& slot) { return slot.*field == value; });
    if (found == slots_.end()) return {};
    lastHit_ = &*found;
    return found->contact;
}

}  // namespace zelbar
