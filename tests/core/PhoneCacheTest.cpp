#include "core/PhoneCache.h"

#include <gtest/gtest.h>

#include "connector/Parts.h"
#include "search/cContact.h"

namespace zelbar {

namespace {

PhoneCache filled(int count) {
    PhoneCache cache;
    const auto contact = makeObject<cContact>(contactParts(driver()));
    for (short i = 1; i <= count; ++i)
        cache.add(L"name" + std::to_wstring(i), std::to_wstring(i), i, contact);
    return cache;
}

TEST(PhoneCacheRing, KeepsTwentyContactsByExactNumberAndNameInAnyCase) {
    PhoneCache cache = filled(21);
    EXPECT_FALSE(cache.findByNumber(L"1")) << "the twenty-first has taken its slot";
    EXPECT_TRUE(cache.findByNumber(L"2"));
    EXPECT_FALSE(cache.findByNumber(L" 2"));
    EXPECT_TRUE(cache.findByNumber(L"21"));
    EXPECT_EQ(cache.flagOfLastHit(), 21);
    std::wstring name = L"NaMe3";
    EXPECT_TRUE(cache.findByName(name));
    EXPECT_EQ(name, L"NAME3");
    EXPECT_EQ(cache.flagOfLastHit(), 3);
}

TEST(PhoneCacheRing, ClearEmptiesOnlyTheSlotThatComesNext) {
    PhoneCache cache = filled(20);
    const auto contact = cache.findByNumber(L"20");
    cache.clear();
    EXPECT_FALSE(cache.findByNumber(L"1"));
    cache.add(L"new", L"new", 0, contact);
    EXPECT_TRUE(cache.findByNumber(L"2"));
    cache.add(L"newer", L"newer", 0, contact);
    EXPECT_FALSE(cache.findByNumber(L"2"));
}

}  // namespace

}  // namespace zelbar
