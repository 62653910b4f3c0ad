#include <windows.h>

#include "tests/actions/ActionTest.h"
#include "tests/dialogs/Windows.h"

namespace zelbar {

namespace {

class MessageForm : public ActionTest {
  protected:
    MessageForm() { connector(); }
    void TearDown() override {
        for (const HWND window : openDialogs()) DestroyWindow(window);
        ActionTest::TearDown();
    }
};

TEST_F(MessageForm, AFailedStartOpensOneWindowInFrontThatKeysAndTheButtonClose) {
    void (*const ways[])(HWND window, HWND ok) = {
        [](HWND, HWND ok) { SendMessageW(ok, BM_CLICK, 0, 0); },
        [](HWND, HWND ok) { PostMessageW(ok, WM_KEYDOWN, VK_RETURN, 0); },
        [](HWND, HWND ok) { PostMessageW(ok, WM_KEYDOWN, VK_ESCAPE, 0); },
        [](HWND window, HWND) { PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); },
    };
    for (const auto close : ways) {
        for (const wchar_t* program : {L"one.exe", L"other.exe"})
            run(action(kLaunch, {{L"Path", L"C:\\None"}, {L"Arguments", program}}), unknown());
        ASSERT_EQ(openDialogs().size(), 1u);
        const HWND window = openDialogs()[0];
        EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST);
        EXPECT_EQ(windowText(window), driver().module.title);
        EXPECT_TRUE(windowText(GetDlgItem(window, 0)).ends_with(L": C:\\None\\one.exe."));
        close(window, GetDlgItem(window, IDOK));
        serveMessages();
        EXPECT_FALSE(driver().user.messageWindow->isOpen());
        EXPECT_TRUE(openDialogs().empty());
    }
}

}  // namespace

}  // namespace zelbar
