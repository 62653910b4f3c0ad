#include "automation/Deadline.h"

#include <gtest/gtest.h>

#include "automation/Gateway.h"
#include "automation/Object.h"
#include "automation/OutgoingCalls.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "tests/automation/FaultOf.h"
#include "tests/automation/StrictObject.h"
#include "tests/harness/ClientFilter.h"

namespace zelbar {
namespace {

constexpr auto kRejected = static_cast<HRESULT>(0x80010001);
constexpr auto kCancelled = static_cast<HRESULT>(0x80010002);

constexpr DWORD kLimit = 5000;
DWORD limit() {
    return kLimit;
}

/// Stands still but for what the test lets pass.
class HandClock final : public CallClock {
  public:
    ULONGLONG now() const noexcept override { return time; }
    void pause(DWORD milliseconds, bool serving) noexcept override {
        pauses.push_back(serving);
        time += milliseconds;
        if (meanwhile && serving) meanwhile();
    }

    ULONGLONG time = 1000;
    std::vector<bool> pauses;  ///< Whether messages were served.
    std::function<void()> meanwhile;
};

struct DeadlineTest : testing::Test {
    /// How Outlook answers a call that begins at that time; it may let time pass.
    std::function<HRESULT(ULONGLONG begun)> answer = [](ULONGLONG) { return S_OK; };
    HandClock clock;
    Gateway gateway{clock};
    std::wstring reported;
    StrictObject outlook{{{L"Name", 5, DISPATCH_METHOD | DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT},
                          {L"Save", 6},
                          {L"Send", 7}},
                         [this](DISPID, DISPPARAMS&, VARIANT*, EXCEPINFO*) {
                             ++calls;
                             return answer(clock.time);
                         }};
    int calls = 0;

    DeadlineTest() { begin(); }
    /// A gateway that knows of nothing.
    void begin() {
        gateway = Gateway(clock);
        gateway.calls()->reportTo([this](const wchar_t* member, ULONGLONG milliseconds) {
            reported += member + (L" " + std::to_wstring(milliseconds));
        });
        clock.time = 1000;
        calls = 0;
        reported.clear();
    }
    Object object() { return Object(gateway, Server::Outlook, outlook.reference(), 40); }

    static long readOf(const Object& item) {
        return faultOf([&] { item.get(zelbar::outlook::Name); }).number;
    }
    /// A member that reads twelve properties: how many came.
    int twelveReads(const Object& item) {
        const Deadline deadline(gateway, limit);
        int came = 0;
        for (int i = 0; i < 12; ++i) came += readOf(item) == 0 ? 1 : 0;
        return came;
    }
};

TEST_F(DeadlineTest, WhatMayHaveBeenDoneIsNotAskedTwice) {
    const Object item = object();
    const Deadline deadline(gateway, limit);
    answer = [](ULONGLONG) { return kRejected; };
    EXPECT_EQ(faultOf([&] { item.call(zelbar::outlook::Save); }).number, kRejected);
    EXPECT_EQ(calls, 1);
    answer = [&](ULONGLONG) { return calls < 4 ? kRejected : S_OK; };
    item.put(zelbar::outlook::Name, L"again");
    EXPECT_EQ(calls, 4) << "a value can be put again";
    answer = [&](ULONGLONG) {
        clock.time += kLimit;
        return kCancelled;
    };
    const Fault fault = faultOf([&] { item.call(zelbar::outlook::Save); });
    EXPECT_TRUE(saysNotAnswering(fault));
    EXPECT_NE(fault.description.find(L"whether it has carried out Save is not known"), std::wstring::npos);
    EXPECT_EQ(calls, 5);
}

TEST_F(DeadlineTest, TheEarlierEndHoldsAndTheUsersTimeDoesNotCount) {
    const Object item = object();
    const auto read = [&] { return readOf(item); };
    {
        const Deadline outer(gateway, limit);
        clock.time += 4000;
        {
            const Deadline inner(gateway, limit);
            clock.time += 500;
            EXPECT_EQ(read(), 0);
            const Untimed dialog(gateway);
            clock.time += 60000;
            EXPECT_EQ(read(), 0);
            const Deadline ofTheDialog(gateway, limit);
            clock.time += 4900;
            EXPECT_EQ(read(), 0);
        }
        EXPECT_EQ(read(), 0);
        answer = [&](ULONGLONG) {
            clock.time += 60000;
            return S_OK;
        };
        item.call(zelbar::outlook::Send);
        answer = [](ULONGLONG) { return S_OK; };
        EXPECT_EQ(read(), 0) << "Outlook has asked its user";
        const Deadline inner(gateway, limit);
        clock.time += 600;
        EXPECT_EQ(read(), kNotAnswering) << "the outer one is over";
    }
    EXPECT_EQ(read(), 0) << "without a deadline Outlook is asked";
    const Deadline none(gateway, [] { return DWORD{0}; });
    answer = [](ULONGLONG) { return kRejected; };
    clock.time += 60000;
    EXPECT_EQ(read(), kRejected);
    EXPECT_TRUE(clock.pauses.empty()) << "asked once, as ever";
}

TEST_F(DeadlineTest, TheClientsMessagesAreServedInAPauseButNotInAPauseWithin) {
    const Object item = object();
    answer = [](ULONGLONG) { return kRejected; };
    int depth = 0, deepest = 0;
    clock.meanwhile = [&] {
        deepest = std::max(deepest, ++depth);
        twelveReads(item);
        --depth;
    };
    EXPECT_EQ(twelveReads(item), 0);
    EXPECT_EQ(deepest, 1);
    EXPECT_TRUE(clock.pauses.front());
    EXPECT_FALSE(clock.pauses.back());
    EXPECT_LE(clock.time, 1000 + 2 * kLimit);
}

TEST_F(DeadlineTest, AReferenceWaitsForItsReleaseUntilOutlookAnswers) {
    const auto late = [this](ULONGLONG) {
        clock.time += kLimit;
        return S_OK;
    };
    Object given = object(), other = object();
    answer = late;
    twelveReads(given);
    EXPECT_EQ(reported, L"Name 5000");
    given = {};
    clock.time += 60000;
    EXPECT_EQ(outlook.references, 3) << "to give it back is a call too";
    answer = [](ULONGLONG) { return S_OK; };
    twelveReads(other);
    EXPECT_EQ(outlook.references, 2);
    other = {};
    answer = late;
    for (const auto& [passed, references] : {std::pair(60000ULL, 1L), {0ULL, 2L}}) {
        given = object();
        twelveReads(given);
        given = {};
        clock.time += passed;
        begin();
        EXPECT_EQ(outlook.references, references) << "in the end, where it may answer by then";
    }
    outlook.references = 1;
}

/// The thread's filter, which stays.
Com<IMessageFilter> currentFilter() {
    Com<IMessageFilter> filter;
    CoRegisterMessageFilter(nullptr, filter.put());
    CoRegisterMessageFilter(filter.get(), nullptr);
    return filter;
}

TEST_F(DeadlineTest, OnlyTheClockDecidesAndIncomingCallsAreTheClients) {
    harness::ClientFilter client;
    const Object item = object();
    for (IMessageFilter* const before :
         {static_cast<IMessageFilter*>(nullptr), static_cast<IMessageFilter*>(&client)}) {
        CoRegisterMessageFilter(before, nullptr);
        Com<IMessageFilter> ours;
        answer = [&](ULONGLONG begun) {
            ours = currentFilter();
            EXPECT_EQ(ours->HandleInComingCall(2, nullptr, 0, nullptr),
                      before ? SERVERCALL_RETRYLATER : SERVERCALL_ISHANDLED);
            EXPECT_EQ(ours->MessagePending(nullptr, 0, 1), PENDINGMSG_WAITDEFPROCESS);
            for (const auto& [passed, wait] : {std::pair(0ul, 200u), {kLimit - 50, 100u}, {kLimit, ~0u}}) {
                clock.time = begun + passed;
                EXPECT_EQ(ours->RetryRejectedCall(nullptr, 0, SERVERCALL_RETRYLATER), wait);
            }
            EXPECT_EQ(ours->MessagePending(nullptr, 0, 1), PENDINGMSG_CANCELCALL);
            return S_OK;
        };
        EXPECT_EQ(twelveReads(item), 1);
        EXPECT_EQ(currentFilter().get(), before) << "put back, also none";
        // Whoever has kept it has nothing but the one before.
        EXPECT_EQ(ours->MessagePending(nullptr, 0, 1),
                  before ? PENDINGMSG_WAITNOPROCESS : PENDINGMSG_WAITDEFPROCESS);
        EXPECT_EQ(ours->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), before ? 77 : ~0u);
        clock.time += kLimit;
    }
    for (IMessageFilter* const theirs : {static_cast<IMessageFilter*>(&client), {nullptr}}) {
        answer = [&](ULONGLONG) { return CoRegisterMessageFilter(theirs, nullptr); };
        twelveReads(item);
        EXPECT_EQ(currentFilter().get(), theirs) << "who registers one meanwhile keeps it";
    }
    const Deadline none(gateway, [] { return DWORD{0}; });
    CoRegisterMessageFilter(&client, nullptr);
    answer = [](ULONGLONG) {
        EXPECT_EQ(currentFilter()->RetryRejectedCall(nullptr, 0, SERVERCALL_REJECTED), 77);
        EXPECT_EQ(currentFilter()->MessagePending(nullptr, 0, 1), PENDINGMSG_WAITNOPROCESS);
        return S_OK;
    };
    EXPECT_EQ(readOf(item), 0);
    CoRegisterMessageFilter(nullptr, nullptr);
    EXPECT_EQ(client.references, 1);
}

}  // namespace
}  // namespace zelbar
