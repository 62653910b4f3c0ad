#pragma once

#include <set>
#include <string>
#include <vector>

namespace filler {

/// The driver's table of stores has so many rows.
inline constexpr long kMostStores = 100;

/// A store and the short key that stands for it in the rows of its contacts.
struct StoreKey {
    std::wstring index;
    std::wstring storeId;
};

/// A key for each store, in the order of the stores; behind them the known ones of stores that `mayReturn`,
/// as far as the driver's table holds them. A store keeps the key that it has: a running driver has read the
/// keys once, and under another store's key it would not find the contacts. A new key comes from the store's
/// identifier, so that no key ever passes from one store to another.
std::vector<StoreKey> storeKeys(const std::vector<StoreKey>& known, const std::vector<std::wstring>& storeIds,
                                const std::set<std::wstring>& mayReturn);

}  // namespace filler
