#include "tests/filler/Fixture.h"

namespace {

constexpr int kTooMany = 2000;

class InterruptedRunTest : public FillerTest {
  protected:
    void setNumber(const wchar_t* number) {
        byron_.fields[L"BusinessTelephoneNumber"] = number;
        mailbox.save(byron_);
    }
    /// A cache that lacks the newest number.
    void fillBefore() {
        setNumber(L"1");
        ASSERT_EQ(fill(), L"");
        setNumber(L"2");
    }
    ItemRecord byron_ = addPerson(defaultContacts, L"Byron", L"1");
};

TEST_F(InterruptedRunTest, TheUserCanEndItAtAnyPoint) {
    fillBefore();
    int n = 0;
    for (observer_.cancelAt = 0; *observer_.cancelAt <= 0; ++n) {
        ASSERT_LT(n, kTooMany) << "no end in sight";
        EXPECT_EQ(people(), Texts{L"Byron|1"}) << n;
        observer_.cancelAt = n + 1;
        const std::wstring failure = fill();
        EXPECT_EQ(failure, *observer_.cancelAt > 0 ? L"" : L"The run was interrupted.");
        EXPECT_EQ(flag(), L"0");
    }
    EXPECT_GT(n, 5);
}

TEST_F(InterruptedRunTest, TheFlagIsUpWhileRowsAreWrittenAndOthersAreRespected) {
    std::wstring ours;
    observer_.onProgress = [&](const std::wstring& what) {
        EXPECT_EQ(flag() == L"1", what == kWriting);
        ours = registry.get(HKEY_CURRENT_USER, zelbar::kPopupKey, L"SynchroProcess").value_or(L"");
    };
    ASSERT_EQ(fill(), L"");
    EXPECT_EQ(flag(), L"0");
    observer_.onProgress = {};
    const struct {
        std::wstring owner;
        const wchar_t *flagAfterwards, *failure;
    } cases[] = {
        {L"", L"1", L""},                // another program's
        {L"4294967292 1 1", L"0", L""},  // nobody has this number
        {ours + L"0", L"0", L""},        // the number has been given again
        {ours, L"1", L"Another fillcache is writing the cache just now. Wait until it has ended"},
    };
    for (const auto& c : cases) {
        setNumber(c.owner.c_str());
        popup(L"SynchroInProgress", L"1");
        popup(L"SynchroProcess", c.owner);
        EXPECT_EQ(fill(), c.failure);
        EXPECT_EQ(flag(), c.flagAfterwards);
        EXPECT_EQ(observer_.notes.size(), c.owner.empty() ? 1u : 0u);
    }
}

}  // namespace
