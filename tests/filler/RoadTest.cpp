#include <set>

#include "tests/filler/Fixture.h"
#include "tests/numbers/Spellings.h"

/// From Outlook through the filler and the cache to the driver's answer.
namespace zelbar {
namespace {

class Road : public FillerTest, public testing::WithParamInterface<const wchar_t*> {
  protected:
    void SetUp() override {
        for (const spellings::Case& one : spellings::all())
            if (one.home == GetParam()) cases_.push_back(one);
        ASSERT_GE(cases_.size(), 20u);
        std::vector<TestRow> old;
        for (std::size_t i = 0; i < cases_.size(); ++i)
            old.push_back(addListed(L"Nr" + std::to_wstring(i), L"Same", cases_[i].stored));
        writeCache(old);
    }
    /// Everybody whom a caller's number finds, by first name; each is delivered once.
    std::set<std::wstring> foundBy(const std::wstring& number, long kind = 0) {
        std::set<std::wstring> names;
        const Object cursor = openCursor();
        for (Object contact = cursor.object({L"FindFirst"}, kind, number);
             contact && !contact.boolean({L"NotInPIM"}); contact = cursor.object({L"FindNext"}))
            EXPECT_TRUE(names.insert(contact.text({L"FirstName"})).second) << number.c_str();
        return names;
    }
    /// How many of the calls find the contact whose number they are.
    std::pair<int, int> answered() {
        int found = 0, calls = 0;
        for (std::size_t i = 0; i < cases_.size(); ++i) {
            const std::wstring name = L"Nr" + std::to_wstring(i);
            for (const std::wstring& hit : cases_[i].hits) {
                found += static_cast<int>(foundBy(hit).count(name));
                ++calls;
            }
            for (const std::wstring& miss : cases_[i].misses)
                EXPECT_FALSE(foundBy(miss).count(name)) << cases_[i].stored.c_str() << " " << miss.c_str();
        }
        return {found, calls};
    }
    /// Fills the cache; a driver that starts afterwards reads it.
    filler::CacheChange change() {
        place_ = cases_[0].place;
        EXPECT_EQ(fill(), L"");
        EXPECT_EQ(observer_.notes, Texts{});
        finish();
        return result_.change;
    }

    std::vector<spellings::Case> cases_;
};

TEST_P(Road, FindsEveryCallerOnceTheOldCacheIsUpToDate) {
    const auto [before, calls] = answered();
    const std::set<std::wstring> named = foundBy(L"Same*", 1);
    EXPECT_GT(change().added, 0);
    EXPECT_FALSE(change().any()) << "an unchanged run";
    const int after = answered().first;
    EXPECT_EQ(after, calls);
    EXPECT_LT(before, calls / 4);
    EXPECT_EQ(foundBy(L"Same*", 1), named);
    EXPECT_EQ(named.size(), cases_.size());
}

INSTANTIATE_TEST_SUITE_P(Places, Road, testing::Values(L"DE 30", L"US 212"));

}  // namespace
}  // namespace zelbar
