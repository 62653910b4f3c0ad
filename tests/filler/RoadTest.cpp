#include <set>

#include "tests/filler/Fixture.h"
#include "tests/numbers/Spellings.h"

/// From Outlook through the filler and the cache to the driver's answer.
namespace zelbar {
namespace {

class Road : public FillerTest {
  protected:
    /// Everybody whom a caller's number finds, by first name; each is delivered once.
    std::set<std::wstring> foundBy(const std::wstring& number, long kind = 0) {
        std::set<std::wstring> names;
        const Object cursor = openCursor();
        for (Object contact = cursor.object({L"FindFirst"}, kind, number);
             contact && !contact.boolean({L"NotInPIM"}); contact = cursor.object({L"FindNext"}))
            EXPECT_TRUE(names.insert(contact.text({L"FirstName"})).second) << number.c_str();
        return names;
    }
};

TEST_F(Road, FindsEveryCallerOnceTheOldCacheIsUpToDate) {
    std::vector<TestRow> old;
    std::vector<std::pair<std::wstring, std::wstring>> calls;
    for (const spellings::Case& one : spellings::all()) {
        if (one.home != L"DE 30") continue;
        place_ = one.place;
        const std::wstring name = L"Nr" + std::to_wstring(old.size());
        old.push_back(addListed(name, L"Same", one.stored));
        for (const std::wstring& hit : one.hits) calls.push_back({hit, name});
    }
    writeCache(old);
    const std::set<std::wstring> named = foundBy(L"Same*", 1);
    EXPECT_EQ(named.size(), old.size());
    finish();
    for (const bool changes : {true, false}) {
        EXPECT_EQ(fill(), L"");
        EXPECT_EQ(result_.change.any(), changes);
    }
    EXPECT_GE(calls.size(), 40u);
    for (const auto& [number, name] : calls) EXPECT_TRUE(foundBy(number).contains(name)) << number.c_str();
    EXPECT_EQ(foundBy(L"Same*", 1), named);
}

}  // namespace
}  // namespace zelbar
