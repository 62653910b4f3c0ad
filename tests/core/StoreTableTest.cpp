#include "core/StoreTable.h"

#include "core/DriverState.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

using Stores = DriverTest;

TEST_F(Stores, AreReadInTheOrderOfTheTable) {
    writeCache({});
    addCacheStore(L"2", L"SECOND");
    addCacheStore(L"2", L"THIRD");
    connector();
    const StoreTable& stores = driver().cache.stores();
    EXPECT_EQ(stores.at(2).storeId, L"SECOND");
    EXPECT_EQ(stores.at(3).storeId, L"THIRD");
    EXPECT_EQ(stores.storeIdOf(L"2"), L"SECOND");
    EXPECT_EQ(stores.storeIdOf(L"9"), L"");
    EXPECT_EQ(stores.storeIdOf(L""), L"");
}

TEST_F(Stores, AHundredAreKeptAndTheNextIsAnError) {
    writeCache({});
    for (int i = 2; i <= 102; ++i) addCacheStore(std::to_wstring(i), L"S" + std::to_wstring(i));
    connector();
    EXPECT_EQ(driver().cache.stores().at(100).storeId, L"S100");
    EXPECT_TRUE(traced("  i=100"));
    EXPECT_FALSE(traced("  i=101"));
    EXPECT_TRUE(traced("Error(ReadPst): Subscript out of range in "));
}

}  // namespace

}  // namespace zelbar
