#include "filler/StoreKeys.h"

#include <algorithm>
#include <cstdint>

#include "support/Text.h"

namespace filler {
namespace {

/// A key that no other store has: "S" and the FNV-1a hash of the identifier.
std::wstring newKey(const std::wstring& storeId, std::set<std::wstring>& used) {
    constexpr std::uint32_t kOffset = 2166136261U, kPrime = 16777619U;
    std::uint32_t hash = kOffset;
    for (const wchar_t c : storeId) hash = (hash ^ c) * kPrime;
    while (!used.insert(L"S" + zelbar::hexadecimal(hash)).second) ++hash;
    return L"S" + zelbar::hexadecimal(hash);
}

}  // namespace

std::vector<StoreKey> storeKeys(const std::vector<StoreKey>& known, const std::vector<std::wstring>& storeIds,
                                const std::set<std::wstring>& mayReturn) {
    std::set<std::wstring> used;
    for (const StoreKey& key : known) used.insert(key.index);
    std::set<std::wstring> taken;
    std::vector<StoreKey> keys;
    for (const std::wstring& storeId : storeIds) {
        const auto old = std::find_if(known.begin(), known.end(),
                                      [&](const StoreKey& key) { return key.storeId == storeId; });
        // Two stores under one key, as a damaged table may have it: the first keeps it.
        const bool keeps = old != known.end() && !old->index.empty() && taken.insert(old->index).second;
        keys.push_back({keeps ? old->index : newKey(storeId, used), storeId});
    }
    for (const StoreKey& key : known) {
        const bool isRead = std::find(storeIds.begin(), storeIds.end(), key.storeId) != storeIds.end();
        if (isRead || keys.size() >= kMostStores || !mayReturn.count(key.storeId)) continue;
        if (!key.index.empty() && taken.insert(key.index).second) keys.push_back(key);
    }
    return keys;
}

}  // namespace filler
