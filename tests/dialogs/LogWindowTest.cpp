#include "dialogs/FLogWindow.h"

#include "com/ModuleState.h"
#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

class LogWindowTest : public DialogTest {
  protected:
    LogWindowTest() {
        popup(L"Developper", L"1");
        connector();
        window = openDialogs().at(0);
        list = GetDlgItem(window, kControl_LLog);
    }
    LRESULT ask(UINT message, WPARAM wide = 0, LPARAM parameter = 0) const {
        return SendMessageW(list, message, wide, parameter);
    }
    std::wstring line(LRESULT index) const {
        std::wstring text(static_cast<size_t>(ask(LB_GETTEXTLEN, static_cast<WPARAM>(index))), L'\0');
        ask(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        return text;
    }
    static std::wstring clipboard() {
        EXPECT_TRUE(OpenClipboard(nullptr));
        const HANDLE content = GetClipboardData(CF_UNICODETEXT);
        const std::wstring result = content ? static_cast<const wchar_t*>(GlobalLock(content)) : L"";
        CloseClipboard();
        return result;
    }

    HWND window = nullptr;
    HWND list = nullptr;
};

TEST_F(LogWindowTest, ShowsTheStartUpCopiesItAndOutlivesTheDriver) {
    EXPECT_EQ(windowText(window), driver().module.title + L" Log");
    EXPECT_TRUE(line(0).ends_with(L": * Driver startup *")) << line(0);
    driver().log.AddSimpleLog(L"Źródło");
    SendMessageW(window, WM_COMMAND, kMenu_Copy, 0);
    EXPECT_TRUE(clipboard().starts_with(line(0) + L"\r\n"));
    EXPECT_TRUE(clipboard().ends_with(L"\r\nŹródło\r\n"));
    ask(LB_SETSEL, TRUE, ask(LB_GETCOUNT) - 1);
    BYTE keys[256] = {};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    ask(WM_KEYDOWN, L'C');
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(clipboard(), L"Źródło\r\n");
    finish();
    EXPECT_EQ(moduleState().liveObjects, 1);
    SendMessageW(window, WM_CLOSE, 0, 0);
    serveMessages();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(moduleState().liveObjects, 0);
}

TEST_F(LogWindowTest, KeepsTheNewestLinesInSightUnlessItsUserReadsOthers) {
    ShowWindow(window, SW_HIDE);  // painting this often takes its time
    for (int i = 1; i <= kMostLogLines; ++i) driver().log.trace(L"line ", i);
    const LRESULT newest = ask(LB_GETCOUNT) - 1;
    EXPECT_LT(newest, kMostLogLines);
    EXPECT_GT(newest, kMostLogLines / 2);
    EXPECT_TRUE(line(newest).ends_with(L": line " + std::to_wstring(kMostLogLines)));
    EXPECT_GT(ask(LB_GETTOPINDEX), newest - 100);
    ask(LB_SETTOPINDEX, 7);
    driver().log.trace(L"one more");
    EXPECT_EQ(ask(LB_GETTOPINDEX), 7);
    driver().log.AddSimpleLog(L"seen whatever is read");
    EXPECT_GT(ask(LB_GETTOPINDEX), newest - 100);
    ShowWindow(window, SW_SHOW);
}

}  // namespace

}  // namespace zelbar
