#include <windows.h>

#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

class MessageForm : public ActionTest {
  protected:
    MessageForm() { connector(); }
    /// The driver's windows on this thread.
    static std::vector<HWND> windowsOfDriver() {
        std::vector<HWND> result;
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, L"#32770", nullptr)))
            if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) result.push_back(window);
        return result;
    }
    static std::wstring textOf(HWND window) {
        std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)), L'\0');
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
        return text;
    }
    /// The client's message loop, which knows nothing of dialogs.
    static void serveMessages() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    void TearDown() override {
        for (const HWND window : windowsOfDriver()) DestroyWindow(window);
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
            run(*action(kLaunch, {{L"Path", L"C:\\None"}, {L"Arguments", program}}), unknown());
        ASSERT_EQ(windowsOfDriver().size(), 1u);
        const HWND window = windowsOfDriver()[0];
        EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST);
        EXPECT_EQ(textOf(window), driver().module.title);
        EXPECT_TRUE(textOf(GetDlgItem(window, 0)).ends_with(L": C:\\None\\one.exe."));
        close(window, GetDlgItem(window, IDOK));
        serveMessages();
        EXPECT_FALSE(driver().user.messageWindow->isOpen());
        EXPECT_TRUE(windowsOfDriver().empty());
    }
}

}  // namespace

}  // namespace zelbar
