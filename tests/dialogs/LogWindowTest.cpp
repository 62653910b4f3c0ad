#include "dialogs/FLogWindow.h"

#include <windows.h>

#include "com/ModuleState.h"
#include "dialogs/Controls.h"
#include "tests/dialogs/DialogTest.h"
#include "tests/dialogs/Windows.h"

namespace zelbar {

namespace {

class LogWindowTest : public DialogTest {
  protected:
    LogWindowTest() { setPopup(L"Developper", L"1"); }
    void TearDown() override {
        ShowWindow(window, SW_SHOW);
        for (const HWND left : openDialogs()) DestroyWindow(left);
        DialogTest::TearDown();
    }
    void open() {
        driver().log.window(&logWindow());
        driver().log.load();
        find();
    }
    void find() {
        ASSERT_EQ(openDialogs().size(), 1u);
        window = openDialogs()[0];
        list = GetDlgItem(window, kControl_LLog);
    }
    std::wstring line(WPARAM index) const {
        std::wstring text(static_cast<size_t>(SendMessageW(list, LB_GETTEXTLEN, index, 0)), L'\0');
        SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
        return text;
    }
    LRESULT count() const { return SendMessageW(list, LB_GETCOUNT, 0, 0); }
    static std::wstring clipboard() {
        std::wstring result;
        if (!OpenClipboard(nullptr)) return result;
        if (const HANDLE content = GetClipboardData(CF_UNICODETEXT)) {
            result = static_cast<const wchar_t*>(GlobalLock(content));
            GlobalUnlock(content);
        }
        CloseClipboard();
        return result;
    }

    HWND window = nullptr;
    HWND list = nullptr;
};

TEST_F(LogWindowTest, ShowsTheWholeStartUp) {
    connector();
    find();
    EXPECT_EQ(windowText(window), driver().module.title + L" Log");
    EXPECT_TRUE(line(0).ends_with(L": * Driver startup *")) << line(0);
    EXPECT_TRUE(line(5).ends_with(L": Connecting to Outlook...")) << line(5);
    EXPECT_FALSE(driver().log.LogToFile());
}

TEST_F(LogWindowTest, CopiesItsLines) {
    open();
    driver().log.AddSimpleLog(L"Źródło");
    driver().log.AddSimpleLog(L"second");
    SendMessageW(window, WM_COMMAND, kMenu_Copy, 0);
    EXPECT_EQ(clipboard(), L"Źródło\r\nsecond\r\n");
    SendMessageW(list, LB_SETSEL, TRUE, 1);
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    SendMessageW(list, WM_KEYDOWN, L'C', 0);
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(clipboard(), L"second\r\n");
}

TEST_F(LogWindowTest, KeepsTheNewestLines) {
    open();
    ShowWindow(window, SW_HIDE);  // painting this often takes its time
    const int written = kMostLogLines + 10;
    for (int i = 1; i <= written; ++i) driver().log.AddSimpleLog(std::to_wstring(i));
    EXPECT_LE(count(), kMostLogLines);
    EXPECT_GT(count(), kMostLogLines / 2);
    EXPECT_EQ(line(static_cast<WPARAM>(count() - 1)), std::to_wstring(written));
    EXPECT_GT(SendMessageW(list, LB_GETTOPINDEX, 0, 0), kMostLogLines / 2) << "scrolled to the new line";
}

TEST_F(LogWindowTest, ClosedItTakesNoMoreLinesAndLetsTheModuleGo) {
    open();
    EXPECT_EQ(moduleState().liveObjects, 1);
    SendMessageW(window, WM_CLOSE, 0, 0);
    serveMessages();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(moduleState().liveObjects, 0);
    driver().log.trace(L"lost");
    EXPECT_TRUE(openDialogs().empty());
}

}  // namespace

}  // namespace zelbar
