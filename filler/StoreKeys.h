#pragma once

#include <string>
#include <vector>

namespace filler {

/// A store and the short key that stands for it in the rows of its contacts.
struct StoreKey {
    std::wstring index;
    std::wstring storeId;
};

/// A key for each store, in the order of the stores. A store keeps the key that it has: a running driver has
/// read the keys once, and under another store's key it would not find the contacts. New keys lie above all
/// others.
std::vector<StoreKey> storeKeys(const std::vector<StoreKey>& known,
                                const std::vector<std::wstring>& storeIds);

}  // namespace filler
