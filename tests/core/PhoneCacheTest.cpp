#include "core/PhoneCache.h"

#include <gtest/gtest.h>

#include "connector/Parts.h"
#include "search/cContact.h"

namespace zelbar {

namespace {

TEST(PhoneCacheRing, KeepsTwentyContactsAndClearEmptiesOnlyTheSlotThatComesNext) {
    PhoneCache cache;
    const auto contact = makeObject<cContact>(contactParts(driver()));
    for (short i = 1; i <= 21; ++i) cache.add(L"name" + std::to_wstring(i), std::to_wstring(i), i, contact);
    EXPECT_FALSE(cache.findByNumber(L"1")) << "the twenty-first has taken its slot";
    EXPECT_FALSE(cache.findByNumber(L" 2"));
    EXPECT_TRUE(cache.findByNumber(L"2"));
    EXPECT_TRUE(cache.findByNumber(L"21"));
    EXPECT_EQ(cache.flagOfLastHit(), 21);
    std::wstring name = L"NaMe3";
    EXPECT_TRUE(cache.findByName(name));
    EXPECT_EQ(name, L"NAME3");
    EXPECT_EQ(cache.flagOfLastHit(), 3);
    cache.clear();
    EXPECT_FALSE(cache.findByNumber(L"2"));
    EXPECT_TRUE(cache.findByNumber(L"21"));
    cache.add(L"new", L"new", 0, contact);
    EXPECT_FALSE(cache.findByNumber(L"21")) << "from the first slot again";
    EXPECT_TRUE(cache.findByNumber(L"3"));
}

}  // namespace

}  // namespace zelbar
