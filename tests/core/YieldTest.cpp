#include "automation/MessageYield.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

namespace {

int served = 0;

/// A handler that always has the next message waiting, as a timer slower than its period does.
LRESULT CALLBACK flood(HWND window, UINT message, WPARAM wide, LPARAM low) noexcept {
    if (message != WM_APP) return DefWindowProcW(window, message, wide, low);
    if (++served < 5000) PostMessageW(window, WM_APP, 0, 0);
    return 0;
}

using Yield = DriverTest;

TEST_F(Yield, AFloodOfMessagesDoesNotHoldASearch) {
    writeCache({});
    const Object cursor = openCursor();
    WNDCLASSW kind{};
    kind.lpfnWndProc = flood;
    kind.lpszClassName = L"Flood";
    RegisterClassW(&kind);
    HWND window = CreateWindowW(L"Flood", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    PostMessageW(window, WM_APP, 0, 0);
    cursor.call({L"FindFirst"}, 0, L"1");
    EXPECT_GT(served, 1) << "waiting messages run";
    EXPECT_LT(served, 5000);
    DestroyWindow(window);
}

TEST_F(Yield, AClientThatQuitsDuringASearchLearnsOfItAfterwards) {
    writeCache({addListed(L"Ada", L"Byron", L"1")});
    const Object cursor = openCursor();
    PostQuitMessage(7);
    EXPECT_EQ(cursor.object({L"FindFirst"}, 0, L"1").text({L"FullName"}), L"Byron, Ada");
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

}  // namespace

}  // namespace zelbar
