#pragma once

#include <PIMDriverAbstract.h>

#include <array>
#include <string>

#include "automation/Com.h"

namespace zelbar {

/// The last twenty contacts that one search cursor has found: a ring in which the oldest gives way.
class PhoneCache {
  public:
    static constexpr size_t kSlots = 20;

    /// Records a contact; the cache takes the reference over. `name` is kept in upper case.
    void add(const std::wstring& name, const std::wstring& number, short flag, Com<::Contact> contact);

    /// Empties the slot that the next contact will take, and starts again at the first slot. The other slots
    /// keep their contacts until they are overwritten: searches after a clear can still find them.
    void clear();

    /// The contact of the first slot with exactly that number; none when there is no such.
    Com<::Contact> findByNumber(const std::wstring& number);
    /// The contact of the first slot with that name in any letter case; `name` comes back in upper case.
    Com<::Contact> findByName(std::wstring& name);
    /// The flag of the slot that the last find hit; 0 before the first hit.
    short flagOfLastHit() const { return lastHit_ ? lastHit_->flag : short{0}; }

  private:
    struct Slot {
        std::wstring name;
        std::wstring number;
        Com<::Contact> contact;
        short flag = 0;
    };

    Com<::Contact> find(std::wstring Slot::*field, const std::wstring& value);

    std::array<Slot, kSlots> slots_;
    size_t next_ = 0;
    const Slot* lastHit_ = nullptr;
};

}  // namespace zelbar
