#include <cstdlib>
#include <functional>
#include <thread>

#include "automation/DaoNames.h"
#include "automation/Object.h"
#include "automation/OutlookClass.h"
#include "automation/OutlookNames.h"
#include "tests/harness/Caller.h"
#include "tests/harness/ClientFilter.h"
#include "tests/harness/Process.h"
#include "tests/harness/Product.h"

/// The driver as COM activates it, and an Outlook in a process of its own that does not answer as it should.
namespace {

using namespace zelbar;

/// Under an instrument all is slower.
const long kPace = std::getenv("ZELBAR_TEST_SLOW") ? 4 : 1;
const DWORD kLimit = 700 * kPace, kHang = 1100 * kPace, kSlack = 1000 * kPace;

class HangingOutlook : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        product_ = new harness::Product(harness::card("Byron;Ada", "TEL;TYPE=WORK:5\r\n"));
    }
    static void TearDownTestSuite() {
        limit(L"");
        delete product_;
    }
    static void limit(const std::wstring& milliseconds) {
        harness::Product::set(L"Popup", L"OutlookTimeout", milliseconds);
    }

    static long rows() {
        const Object database = Gateway()
                                    .create(Server::Dao, dao::kEngineProgIds[0], dao::kEngine)
                                    .object(dao::OpenDatabase, product_->folder.file(L"connec00.mdb"));
        const long count = database.object(dao::OpenRecordset, L"TCache").integer(dao::RecordCount);
        database.call(dao::Close);
        return count;
    }

    static void goEveryWay();

    static inline harness::Product* product_ = nullptr;
};

void HangingOutlook::goEveryWay() {
    const Object application = Gateway().create(Server::Outlook, outlook::kProgId, outlook::kApplication);
    const Object control = application.object(Member{L"StandIn"});
    const auto hangOnce = [&](long call) { control.call(Member{L"Hang"}, call, static_cast<long>(kHang)); };
    const auto reject = [&](const Variant& times) {
        for (const wchar_t* name : {L"GetItemFromID", L"LastName"})
            control.call(Member{L"FailMember"}, name, static_cast<long>(0x80010001), Variant::missing(),
                         times);
    };
    std::jthread busy;
    const struct {
        const char* name;
        std::function<void()> order;
        bool found;
        ULONGLONG most;
        long calls;  ///< At most.
    } ways[] = {
        {"rejects for a while", [&] { reject(1L); }, true, kLimit + kSlack, 100},
        {"rejects for ever", [&] { reject(Variant::missing()); }, false, kLimit + kSlack, 10L * kPace},
        {"hangs in GetNamespace", [&] { hangOnce(1); }, false, kHang + kSlack, 1},
        {"hangs in GetItemFromID", [&] { hangOnce(3); }, false, kHang + kSlack, 3},
        {"hangs in a property", [&] { hangOnce(5); }, false, kHang + kSlack, 5},
        {"hangs in the activation",
         [&] {
             control.call(Member{L"HangMember"}, L"Version", static_cast<long>(kHang));
             busy = std::jthread([] {
                 CoInitializeEx(nullptr, COINIT_MULTITHREADED);
                 Gateway()
                     .create(Server::Outlook, outlook::kProgId, outlook::kApplication)
                     .text(outlook::Version);
                 CoUninitialize();
             });
             Sleep(100);
         },
         false, kHang + kSlack, 1},
    };
    harness::Caller caller;
    const auto finds = [&caller] { return caller.find(L"*") == L"Byron, Ada"; };
    const long before = rows();
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        limit(L"0");
        ASSERT_TRUE(finds());
        control.call(Member{L"ResetCounters"});
        way.order();
        limit(std::to_wstring(kLimit).c_str());
        EXPECT_EQ(finds(), way.found);
        EXPECT_LE(caller.took, way.most);
        if (busy.joinable()) busy.join();
        EXPECT_LE(control.integer(Member{L"Invocations"}), way.calls) << "none once the time was over";
        if (!way.found) {
            control.call(Member{L"ResetCounters"});
            EXPECT_FALSE(finds());
            EXPECT_LE(caller.took, kSlack);
            EXPECT_EQ(control.integer(Member{L"Invocations"}), 0);
        }
        control.call(Member{L"Clear"});
        EXPECT_EQ(rows(), before);
    }
    limit(L"0");
    EXPECT_TRUE(finds());
}

TEST_F(HangingOutlook, IsLeftInTimeByAClientWithAFilterAndMessagesOfItsOwnOrWithout) {
    for (const bool isPlain : {true, false}) {
        SCOPED_TRACE(isPlain);
        harness::ClientFilter filter;
        if (!isPlain) CoRegisterMessageFilter(&filter, nullptr);
        std::jthread messages([isPlain, thread = GetCurrentThreadId()](const std::stop_token& ended) {
            for (; !isPlain && !ended.stop_requested(); Sleep(50)) PostThreadMessageW(thread, WM_NULL, 0, 0);
        });
        goEveryWay();
        messages = {};
        Com<IMessageFilter> left;
        CoRegisterMessageFilter(nullptr, left.put());
        EXPECT_EQ(left.get(), isPlain ? nullptr : &filter);
        left.reset();
        EXPECT_EQ(filter.references, 1);
    }
}

TEST_F(HangingOutlook, IsLeftInTimeByAClientOfSeveralThreads) {
    std::thread([] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        goEveryWay();
        CoUninitialize();
    }).join();
}

TEST_F(HangingOutlook, IsFoundAnewWhenItWasClosedMeanwhile) {
    const Gateway gateway;
    OutlookClass found(gateway);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(found.newApplication().text(outlook::Name), L"Outlook");
        harness::Product::quitOutlook();
    }
}

TEST_F(HangingOutlook, TheFillerIsInterruptedWithinASecond) {
    const Object application = Gateway().create(Server::Outlook, outlook::kProgId, outlook::kApplication);
    const Object control = application.object(Member{L"StandIn"});
    const long before = rows();
    control.call(Member{L"HangMember"}, L"NameSpace.GetDefaultFolder", 3500L);
    std::wstring line = L"\"" + harness::programFolder() + L"\\fillcache.exe\"";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                               &started));
    Sleep(1200);
    // As the console does it when the user presses the keys; a test has no console.
    const auto routine = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernelbase"), "CtrlRoutine")));
    ASSERT_TRUE(routine);
    CloseHandle(CreateRemoteThread(started.hProcess, nullptr, 0, routine, nullptr, 0, nullptr));
    EXPECT_EQ(WaitForSingleObject(started.hProcess, 1000), WAIT_OBJECT_0);
    DWORD status = 0;
    GetExitCodeProcess(started.hProcess, &status);
    EXPECT_EQ(status, 3u);
    TerminateProcess(started.hProcess, 9);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    control.call(Member{L"Clear"});
    EXPECT_EQ(rows(), before);
}

}  // namespace
