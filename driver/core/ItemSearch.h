#pragma once

#include <functional>
#include <string>

#include "automation/Object.h"
#include "core/LookUp.h"
#include "core/StoreTable.h"

namespace zelbar {

/// The search for one item in several stores. A store that raises an error does not end it: the item may lie
/// in the next one, and only what all of them said together is the verdict.
class ItemSearch {
  public:
    /// `report` hears of each store's error; it must not throw.
    ItemSearch(Object nameSpace, std::wstring entryId, std::function<void(const Fault&)> report);

    /// The given store unless it is empty, then the default store, then the stores of the table up to its
    /// first empty entry. Stops at the first hit.
    LookUp everywhere(const std::wstring& storeId, const StoreTable& stores);

  private:
    bool tryStore(const std::wstring& storeId);
    bool tryDefaultStore();
    template <class Question>
    bool attempt(Question&& question);

    Object nameSpace_;
    std::wstring entryId_;
    std::function<void(const Fault&)> report_;
    LookUp result_;
};

}  // namespace zelbar
