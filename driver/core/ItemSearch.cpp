#include "core/ItemSearch.h"

#include <utility>

#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"

namespace zelbar {

ItemSearch::ItemSearch(Object nameSpace, std::wstring entryId, std::function<void(const Fault&)> report)
    : nameSpace_(std::move(nameSpace)), entryId_(std::move(entryId)), report_(std::move(report)) {}

LookUp ItemSearch::everywhere(const std::wstring& storeId, const StoreTable& stores) {
    if (!storeId.empty() && tryStore(storeId)) return result_;
    if (tryDefaultStore()) return result_;
    for (int i = 1; i <= StoreTable::kEntries && !stores.at(i).storeId.empty(); ++i)
        if (saysNotAnswering(result_.fault) || tryStore(stores.at(i).storeId)) break;
    return result_;
}

bool ItemSearch::tryStore(const std::wstring& storeId) {
    return attempt([&] { return nameSpace_.object(outlook::GetContactItem, entryId_, storeId); });
}

// An empty store identifier is not the same as none: the argument is left out.
bool ItemSearch::tryDefaultStore() {
    return attempt([&] { return nameSpace_.object(outlook::GetContactItem, entryId_); });
}

template <class Question>
bool ItemSearch::attempt(Question&& question) {
    try {
        Object item = question();
        // Outlook raises an error for what it does not find. Nothing without an error says nothing.
        if (!item) throw runtimeFault(fault::kObjectNotSet);
        result_ = {LookUp::Verdict::Found, std::move(item), {}};
        return true;
    } catch (...) {
        const Fault fault = caughtFault();
        report_(fault);
        if (!saysItemGone(fault)) {
            result_.verdict = LookUp::Verdict::Failed;
            result_.fault = fault;
        }
    }
    return false;
}

}  // namespace zelbar
