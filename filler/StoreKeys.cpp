#include "filler/StoreKeys.h"

#include <algorithm>
#include <set>

#include "support/Text.h"

namespace filler {

std::vector<StoreKey> storeKeys(const std::vector<StoreKey>& known,
                                const std::vector<std::wstring>& storeIds) {
    int greatest = 0;
    for (const StoreKey& key : known)
        greatest = std::max(greatest, static_cast<int>(zelbar::leadingInteger(key.index)));
    std::set<std::wstring> used;
    std::vector<StoreKey> keys;
    for (const std::wstring& storeId : storeIds) {
        const auto old = std::find_if(known.begin(), known.end(),
                                      [&](const StoreKey& key) { return key.storeId == storeId; });
        // Two stores under one key, as a damaged table may have it: the first keeps it.
        const bool keeps = old != known.end() && !old->index.empty() && used.insert(old->index).second;
        keys.push_back({keeps ? old->index : std::to_wstring(++greatest), storeId});
    }
    return keys;
}

}  // namespace filler
