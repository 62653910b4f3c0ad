#include "automation/BusyRetry.h"

#include <gtest/gtest.h>

#include "automation/Com.h"

namespace {

TEST(BusyRetry, TriesForSomeSeconds) {
    zelbar::Com<IMessageFilter> filter;
    {
        const zelbar::BusyRetry retry;
        CoRegisterMessageFilter(nullptr, filter.put());
        ASSERT_TRUE(filter);
        CoRegisterMessageFilter(filter.get(), nullptr);
    }
    constexpr DWORD kLeastPause = 100, kGiveUp = static_cast<DWORD>(-1);
    for (const DWORD reason : {SERVERCALL_REJECTED, SERVERCALL_RETRYLATER}) {
        const DWORD pause = filter->RetryRejectedCall(nullptr, 0, reason);
        EXPECT_GE(pause, kLeastPause);
        EXPECT_NE(pause, kGiveUp);
        EXPECT_EQ(filter->RetryRejectedCall(nullptr, 10000, reason), kGiveUp);
    }
    zelbar::Com<IMessageFilter> left;
    CoRegisterMessageFilter(nullptr, left.put());
    EXPECT_FALSE(left);
}

}  // namespace
