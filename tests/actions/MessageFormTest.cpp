#include "dialogs/frmMessageForm.h"

#include <windows.h>

#include "com/ModuleState.h"
#include "tests/actions/ActionTest.h"

namespace zelbar {

namespace {

class MessageForm : public ActionTest {
  protected:
    /// The driver's windows on this thread.
    static std::vector<HWND> windowsOfDriver() {
        std::vector<HWND> result;
        EnumThreadWindows(
            GetCurrentThreadId(), [](HWND window, LPARAM found) __stdcall->BOOL {
                wchar_t name[16] = {};
                GetClassNameW(window, name, 16);
                if (std::wstring(name) == L"#32770")
                    reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&result));
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

TEST_F(MessageForm, AFailedStartOpensOneSmallWindowInFront) {
    const auto launch = action(kLaunch, {{L"Path", L"C:\\None"}, {L"Arguments", L"one.exe"}});
    run(*launch, unknown());
    ASSERT_EQ(windowsOfDriver().size(), 1u);
    const HWND window = windowsOfDriver()[0];
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(GetWindowLongW(window, GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(textOf(window), driver().module.title);
    const std::wstring text = textOf(GetDlgItem(window, 0));
    EXPECT_TRUE(text.ends_with(L": C:\\None\\one.exe.")) << text;
    EXPECT_EQ(textOf(GetDlgItem(window, IDOK)), L"&OK");

    settingOf(*launch, L"Arguments")->put_Value(Variant(L"other.exe").raw());
    run(*launch, unknown());
    EXPECT_EQ(windowsOfDriver(), std::vector<HWND>{window});
    EXPECT_EQ(textOf(GetDlgItem(window, 0)), text);
}

TEST_F(MessageForm, KeysAndTheButtonCloseItInAnyClient) {
    const auto close = [](HWND window, int way) {
        const HWND ok = GetDlgItem(window, IDOK);
        if (way == 0) SendMessageW(ok, BM_CLICK, 0, 0);
        if (way == 1) PostMessageW(ok, WM_KEYDOWN, VK_RETURN, 0);
        if (way == 2) PostMessageW(ok, WM_KEYDOWN, VK_ESCAPE, 0);
        if (way == 3) PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
    };
    for (int way = 0; way < 4; ++way) {
        messageForm().ShowMessage(L"Title", 0, L"Text & more");
        ASSERT_TRUE(messageForm().isOpen());
        EXPECT_EQ(textOf(windowsOfDriver().at(0)), L"Title");
        EXPECT_EQ(moduleState().liveObjects, 1) << "the module stays loaded";
        close(windowsOfDriver().at(0), way);
        serveMessages();
        EXPECT_FALSE(messageForm().isOpen()) << way;
        EXPECT_TRUE(windowsOfDriver().empty());
        EXPECT_EQ(moduleState().liveObjects, 0);
    }
}

TEST_F(MessageForm, LongTextsStayOnTheScreen) {
    messageForm().ShowMessage(L"__NO_TITLE__", 0, std::wstring(40000, L'W'));
    RECT place{}, screen{};
    GetWindowRect(windowsOfDriver().at(0), &place);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    EXPECT_LE(place.right - place.left, screen.right - screen.left);
    EXPECT_LE(place.bottom - place.top, screen.bottom - screen.top);
    messageForm().ShowMessage(L"__NO_TITLE__", 0, L"short");
    EXPECT_EQ(windowsOfDriver().size(), 1u);
}

}  // namespace

}  // namespace zelbar
