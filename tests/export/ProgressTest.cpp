#include "tests/automation/StrictObject.h"
#include "tests/export/ExportTest.h"

namespace zelbar {

namespace {

constexpr DISPID kProgressMember = 5;

/// A client that is told how far the run is; `during` runs each time.
struct Listener {
    std::vector<std::wstring> told;
    std::function<HRESULT()> during = [] { return S_OK; };
    StrictObject object{{{L"Progress", kProgressMember}},
                        [this](DISPID, DISPPARAMS& arguments, VARIANT*, EXCEPINFO*) {
                            // Arguments come the last one first.
                            told.push_back(std::wstring(arguments.rgvarg[2].bstrVal) + L" " +
                                           std::to_wstring(arguments.rgvarg[1].lVal) + L"/" +
                                           std::to_wstring(arguments.rgvarg[0].lVal));
                            return during();
                        }};
};

TEST_F(ExportTest, TheClientIsToldHowFarARunIs) {
    directory.fill(60);
    Listener listener;
    EXPECT_TRUE(initialize(L"Staff", &listener.object));
    EXPECT_EQ(listener.told, (std::vector<std::wstring>{L"add 0/60", L"add 50/60", L"add 60/60"}));
    EXPECT_TRUE(traced("cDataConnector.InitializeExportFolder add 50 of 60"));
    EXPECT_TRUE(synchronize(L"", &listener.object));
    EXPECT_EQ(listener.told.back(), L"change 60/60");
    EXPECT_EQ(listener.object.references, 1);

    listener.told.clear();
    listener.during = [] { return E_FAIL; };
    EXPECT_TRUE(synchronize(L"", &listener.object));
    EXPECT_EQ(listener.told.size(), 1u) << "one that cannot be told does not end the run";
    StrictObject stranger{{}};
    EXPECT_TRUE(synchronize(L"", &stranger));
    expectOneEach(60);
}

TEST_F(ExportTest, ARunWithinARunIsRefused) {
    directory.fill(3);
    Listener listener;
    listener.during = [this] {
        EXPECT_FALSE(initialize());
        EXPECT_FALSE(synchronize());
        return S_OK;
    };
    EXPECT_TRUE(initialize(L"Staff", &listener.object));
    expectOneEach(3);
    EXPECT_TRUE(traced("Error (InitializeExportFolder): The export folder is being worked on. in "));
    EXPECT_TRUE(synchronize()) << "the refusal does not last";
}

// A contact that its user deletes meanwhile lets another one slip past; neither may come twice.
TEST_F(ExportTest, AFolderThatShrinksUnderTheRunGetsNoDoubles) {
    directory.fill(60);
    EXPECT_TRUE(initialize());
    Listener listener;
    listener.during = [&] {
        if (listener.told.back() == L"compare 50/60") outlook.mailbox().eraseItem(contacts().front().id);
        return S_OK;
    };
    EXPECT_FALSE(synchronize(L"", &listener.object));
    EXPECT_EQ(contacts().size(), 59u);
    EXPECT_TRUE(synchronize());
    expectOneEach(60);
}

// The client's window goes on working.
TEST_F(ExportTest, WaitingMessagesAreServedWithEveryRow) {
    directory.fill(3);
    static int served;
    served = 0;
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    SetWindowLongPtrW(
        window, GWLP_WNDPROC,
        reinterpret_cast<LONG_PTR>(+[](HWND self, UINT message, WPARAM w, LPARAM l) __stdcall->LRESULT {
            if (message != WM_APP) return DefWindowProcW(self, message, w, l);
            ++served;
            return 0;
        }));
    Listener listener;
    listener.during = [&] {
        for (int i = 0; i < 5; ++i) PostMessageW(window, WM_APP, 0, 0);
        return S_OK;
    };
    EXPECT_TRUE(initialize(L"Staff", &listener.object));
    EXPECT_EQ(served, 10);
    DestroyWindow(window);
}

}  // namespace

}  // namespace zelbar
