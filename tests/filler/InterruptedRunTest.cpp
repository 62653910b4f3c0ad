#include <gtest/gtest.h>

#include "tests/filler/Fixture.h"
#include "tests/harness/Files.h"

namespace {

constexpr HRESULT kLocked = static_cast<HRESULT>(0x800A0C92);
constexpr int kTooMany = 2000;

class InterruptedRunTest : public CacheTest {
  protected:
    /// Runs an update whose n-th call to DAO fails, for n = 1, 2, ... until one gets through all its calls.
    /// `prepare` sets the stage for each, `check` is told whether it failed and looks at what is left.
    template <class Prepare, class Check>
    void failEveryCall(const Prepare& prepare, const Check& check) {
        int failures = 0;
        for (int n = 1; n < kTooMany; ++n) {
            SCOPED_TRACE("call " + std::to_string(n));
            prepare();
            dao_.server().calls().reset();
            dao_.server().faults().failCall(n, {kLocked, L"Could not update; currently locked."});
            const bool failed = !update(smallBook(L"4")).empty();
            dao_.server().faults().clear();
            const bool gotThrough = dao_.server().calls().invocations() < n;
            EXPECT_TRUE(flag() == L"0" || flag() == L"absent");
            EXPECT_EQ(dao_.server().liveObjects(), 0);
            check(failed);
            failures += failed;
            if (gotThrough || HasFailure()) break;
        }
        EXPECT_GT(failures, 20);
        EXPECT_LT(failures, kTooMany - 1) << "no end in sight";
    }
};

TEST_F(InterruptedRunTest, AFailureAnywhereLeavesThePreviousCache) {
    ASSERT_EQ(update(smallBook(L"4")), L"");
    const CacheContent after = content();
    ASSERT_EQ(update(smallBook(L"3")), L"");
    const CacheContent before = content();
    failEveryCall([&] { ASSERT_EQ(update(smallBook(L"3")), L""); },
                  [&](bool failed) { EXPECT_EQ(content(), failed ? before : after); });
}

TEST_F(InterruptedRunTest, AFailureInTheFirstRunLeavesNoFile) {
    failEveryCall([&] { DeleteFileW(path().c_str()); },
                  [&](bool failed) {
                      EXPECT_NE(harness::exists(path()), failed);
                      EXPECT_TRUE(isTidy());
                  });
}

TEST_F(InterruptedRunTest, TheUserCanEndItAtAnyPoint) {
    ASSERT_EQ(update(smallBook(L"3")), L"");
    const CacheContent before = content();
    for (int n = 1; n < kTooMany; ++n) {
        observer_.cancelAt = n;
        const std::wstring failure = update(smallBook(L"4"));
        EXPECT_NE(flag(), L"1");
        if (*observer_.cancelAt > 0) {
            EXPECT_EQ(failure, L"");
            EXPECT_GT(n, 5);
            return;
        }
        observer_.cancelAt.reset();
        EXPECT_EQ(failure, L"The run was interrupted.");
        ASSERT_EQ(content(), before) << n;
    }
    FAIL() << "no end in sight";
}

TEST_F(InterruptedRunTest, TheFlagIsUpWhileRowsAreWritten) {
    std::vector<std::wstring> seen;
    observer_.onProgress = [&] { seen.push_back(flag()); };
    ASSERT_EQ(update(smallBook()), L"");
    EXPECT_EQ(seen, std::vector<std::wstring>(4, L"1"));
    EXPECT_EQ(observer_.lastProgress, L"Writing the cache 3/3");
    EXPECT_EQ(flag(), L"0");
}

TEST_F(InterruptedRunTest, AFlagThatAKilledRunLeftIsTakenDown) {
    for (const bool changes : {true, false}) {
        registry_.set(HKEY_CURRENT_USER, kPopup, L"SynchroInProgress", L"1");
        ASSERT_EQ(update(smallBook()), L"");
        EXPECT_EQ(change_.any(), changes);
        EXPECT_EQ(flag(), L"0");
    }
}

// The process to be killed: it hangs before the commit, with all rows written.
constexpr wchar_t kVictimPath[] = L"FILLER_TEST_VICTIM";

class KilledRunTest : public InterruptedRunTest {
  protected:
    /// Lets another process update the cache and kills it just before the commit.
    void killARun() {
        const std::wstring sign = path() + L".sign";
        SetEnvironmentVariableW(kVictimPath, path().c_str());
        wchar_t program[MAX_PATH] = {};
        GetModuleFileNameW(nullptr, program, MAX_PATH);
        std::wstring command =
            std::wstring(L"\"") + program +
            L"\" --gtest_filter=KilledRunTest.DISABLED_Victim --gtest_also_run_disabled_tests";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION victim{};
        ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                   &start, &victim));
        for (int i = 0; i < 200 && !harness::exists(sign); ++i) Sleep(50);
        EXPECT_TRUE(harness::exists(sign)) << "the run never came to its writing";
        Sleep(200);  // from the first row to the commit
        EXPECT_EQ(WaitForSingleObject(victim.hProcess, 0), static_cast<DWORD>(WAIT_TIMEOUT));
        TerminateProcess(victim.hProcess, 1);
        WaitForSingleObject(victim.hProcess, INFINITE);
        CloseHandle(victim.hThread);
        CloseHandle(victim.hProcess);
        DeleteFileW(sign.c_str());
    }
};

TEST_F(KilledRunTest, DISABLED_Victim) {
    wchar_t cache[MAX_PATH] = {};
    ASSERT_NE(GetEnvironmentVariableW(kVictimPath, cache, MAX_PATH), 0u);
    filler::SynchroFlag flag;
    zelbar::Gateway gateway;
    constexpr DWORD kForEver = 60000;
    dao_.server().faults().hangMember(L"CommitTrans", kForEver);
    observer_.onProgress = [&] { harness::writeFile(std::wstring(cache) + L".sign", ""); };
    filler::updateCache(gateway, cache, smallBook(L"4"), flag, observer_);
}

TEST_F(KilledRunTest, LeavesThePreviousCacheOrNone) {
    killARun();
    EXPECT_FALSE(harness::exists(path()));
    ASSERT_EQ(update(smallBook(L"3")), L"");
    EXPECT_TRUE(isTidy());
    const CacheContent before = content();
    EXPECT_EQ(before.numbers.size(), 3u);
    killARun();
    EXPECT_EQ(content(), before);
    ASSERT_EQ(update(smallBook(L"4")), L"");
    EXPECT_EQ(change_.added, 1);
}

}  // namespace
