#include "automation/CallFilter.h"

#include <gtest/gtest.h>

#include "automation/Deadline.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "automation/OutlookNames.h"
#include "tests/automation/StrictObject.h"
#include "tests/harness/ClientFilter.h"

namespace zelbar {
namespace {

/// The thread's filter, which stays.
Com<IMessageFilter> current() {
    Com<IMessageFilter> filter;
    CoRegisterMessageFilter(nullptr, filter.put());
    CoRegisterMessageFilter(filter.get(), nullptr);
    return filter;
}

struct StillClock final : CallClock {
    ULONGLONG now() const noexcept override { return time; }
    void pause(DWORD, bool) noexcept override {}
    ULONGLONG time = 0;
};

struct CallFilterTest : testing::Test {
    /// One read of an Outlook that does this meanwhile, under a deadline of a second.
    void read(
        const std::function<void()>& meanwhile, DWORD (*limit)() = [] { return DWORD{1000}; }) {
        StrictObject target({{L"Name", 5}}, [&](DISPID, DISPPARAMS&, VARIANT*, EXCEPINFO*) {
            meanwhile();
            return S_OK;
        });
        const Gateway gateway(clock);
        const Deadline deadline(gateway, limit);
        Object(gateway, Server::Outlook, target.reference(), 40).get(outlook::Name);
    }

    StillClock clock;
    harness::ClientFilter client;
};

TEST_F(CallFilterTest, OnlyTheClockDecidesAndIncomingCallsAreTheClients) {
    for (IMessageFilter* const before :
         {static_cast<IMessageFilter*>(nullptr), static_cast<IMessageFilter*>(&client)}) {
        clock.time = 0;
        CoRegisterMessageFilter(before, nullptr);
        Com<IMessageFilter> kept;
        read([&] {
            const Com<IMessageFilter> ours = kept = current();
            ASSERT_TRUE(ours);
            ASSERT_NE(ours.get(), before);
            EXPECT_EQ(ours->HandleInComingCall(2, nullptr, 0, nullptr),
                      before ? SERVERCALL_RETRYLATER : SERVERCALL_ISHANDLED);
            EXPECT_EQ(ours->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), 200u);
            EXPECT_EQ(ours->MessagePending(nullptr, 0, 1), PENDINGMSG_WAITDEFPROCESS);
            clock.time = 950;
            EXPECT_EQ(ours->RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER), 100u);
            clock.time = 1000;
            EXPECT_EQ(ours->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), CallRules::kGiveUp);
            for (int again = 0; again < 3; ++again)
                EXPECT_EQ(ours->MessagePending(nullptr, 0, 1), PENDINGMSG_CANCELCALL);
        });
        EXPECT_EQ(current().get(), before) << "put back, also none";
        // Whoever has kept it has nothing but the one before.
        EXPECT_EQ(kept->MessagePending(nullptr, 0, 1),
                  before ? PENDINGMSG_WAITNOPROCESS : PENDINGMSG_WAITDEFPROCESS);
        EXPECT_EQ(kept->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), before ? 77 : CallRules::kGiveUp);
    }
    CoRegisterMessageFilter(nullptr, nullptr);
    EXPECT_EQ(client.references, 1);
}

TEST_F(CallFilterTest, AFilterThatSomebodyRegistersMeanwhileStays) {
    for (IMessageFilter* const theirs :
         {static_cast<IMessageFilter*>(nullptr), static_cast<IMessageFilter*>(&client)}) {
        read([&] { CoRegisterMessageFilter(theirs, nullptr); });
        EXPECT_EQ(current().get(), theirs);
    }
    read([&] { EXPECT_EQ(current().get(), &client); }, [] { return DWORD{0}; });
    CoRegisterMessageFilter(nullptr, nullptr);
    EXPECT_EQ(client.references, 1);
}

}  // namespace
}  // namespace zelbar
