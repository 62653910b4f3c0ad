#include "core/PhoneCache.h"

#include <gtest/gtest.h>

#include "search/cContact.h"

namespace zelbar {

namespace {

std::wstring number(int i) {
    return std::to_wstring(i);
}

/// A cache with contacts 1 to `count`, number and name alike.
PhoneCache filled(int count) {
    PhoneCache cache;
    for (int i = 1; i <= count; ++i)
        cache.add(L"name" + number(i), number(i), static_cast<short>(i), makeObject<cContact>());
    return cache;
}

}  // namespace

TEST(PhoneCacheRing, TheTwentyFirstContactTakesTheFirstSlot) {
    PhoneCache cache = filled(21);
    EXPECT_FALSE(cache.findByNumber(L"1"));
    EXPECT_TRUE(cache.findByNumber(L"2"));
    EXPECT_TRUE(cache.findByNumber(L"21"));
    EXPECT_EQ(cache.flagOfLastHit(), 21);
}

TEST(PhoneCacheRing, NamesIgnoreCaseAndNumbersAreExact) {
    PhoneCache cache = filled(3);
    std::wstring name = L"NaMe2";
    EXPECT_TRUE(cache.findByName(name));
    EXPECT_EQ(name, L"NAME2");
    EXPECT_EQ(cache.flagOfLastHit(), 2);
    EXPECT_FALSE(cache.findByNumber(L" 2"));
    EXPECT_EQ(cache.flagOfLastHit(), 2);
}

TEST(PhoneCacheRing, ClearEmptiesOnlyTheSlotThatComesNext) {
    PhoneCache cache = filled(20);
    cache.clear();
    EXPECT_FALSE(cache.findByNumber(L"1"));
    EXPECT_TRUE(cache.findByNumber(L"2"));
    cache.add(L"new", L"new", 0, makeObject<cContact>());
    EXPECT_TRUE(cache.findByNumber(L"2"));
    cache.add(L"newer", L"newer", 0, makeObject<cContact>());
    EXPECT_FALSE(cache.findByNumber(L"2"));
}

}  // namespace zelbar
