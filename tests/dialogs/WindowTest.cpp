#include <windows.h>

#include <commctrl.h>

#include "com/ModuleState.h"
#include "tests/dialogs/SelectionWindowTest.h"

namespace zelbar {

namespace {

TEST_F(SelectionWindow, ShowsTheFoldersAndSavesWithEnter) {
    const auto polish = addFolder(L"Źródła & Łódź");
    const auto umlauts = addFolder(L"Ümläute");
    store(1, contacts);
    store(2, polish);
    open();
    EXPECT_TRUE(traced("Select Outlook contacts folder..."));
    EXPECT_EQ(windowText(window), L"Outlook contacts folders selection");
    EXPECT_FALSE(IsWindowVisible(control(kControl_PSTLabel)));
    EXPECT_EQ(linesOf(list()), (std::vector<std::wstring>{L"\\Personal Folders\\Contacts",
                                                          L"\\Personal Folders\\Źródła & Łódź",
                                                          L"\\Personal Folders\\Ümläute"}));
    EXPECT_EQ(checksOf(list()), L"110");
    toggleLine(list(), 2);
    EXPECT_EQ(checksOf(list()), L"111");
    press(VK_RETURN);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(storedStates(), L"-1 -1 -1");
    EXPECT_EQ(stored(L"entryId3"), entryId(umlauts));
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

TEST_F(SelectionWindow, CancelKeepsWhatIsStored) {
    store(1, contacts);
    const std::function<void()> ways[] = {
        [] { press(VK_ESCAPE); },
        [this] { SendMessageW(control(IDCANCEL), BM_CLICK, 0, 0); },
        [this] { PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0); },
        [] { pressAlt(L'c'); },
    };
    for (const auto& leave : ways) {
        open();
        toggleLine(list(), 0);
        leave();
        serveMessages();
        EXPECT_FALSE(isOpen()) << &leave - ways;
        EXPECT_EQ(storedStates(), L"-1");
        EXPECT_EQ(stored(L"ConfigChanged"), L"(none)");
    }
    finish();
    EXPECT_EQ(moduleState().liveObjects, 0);
}

TEST_F(SelectionWindow, TabGoesRoundInItsOrder) {
    store(1, contacts);
    open();
    std::vector<int> order;
    for (int i = 0; i < 6; ++i) {
        order.push_back(GetDlgCtrlID(GetFocus()));
        press(VK_TAB);
    }
    EXPECT_EQ(order, (std::vector<int>{kControl_listFolder, kControl_ReinitCheck, kControl_CmdSelect, IDOK,
                                       IDCANCEL, kControl_listFolder}));
}

TEST_F(SelectionWindow, ReinitializationIsTheUsersToAskFor) {
    store(1, contacts);
    open();
    SetFocus(control(kControl_ReinitCheck));
    press(VK_SPACE);
    pressAlt(L'o');
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
    open();
    EXPECT_EQ(IsDlgButtonChecked(window, kControl_ReinitCheck), static_cast<UINT>(BST_CHECKED));
    SendMessageW(control(kControl_ReinitCheck), BM_CLICK, 0, 0);
    SendMessageW(control(IDOK), BM_CLICK, 0, 0);
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

TEST_F(SelectionWindow, TellsWhatDoesNotFit) {
    const auto gone = addFolder(L"Gone");
    store(1, contacts);
    store(2, gone);
    outlook.mailbox().eraseFolder(gone.id);
    open();
    EXPECT_TRUE(IsWindowVisible(control(kControl_PSTLabel)));
    EXPECT_EQ(windowText(control(kControl_PSTLabel)),
              L"The selection has changed because of contacts files added or removed in Outlook.");
    press(VK_ESCAPE);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1") << "saved before the user cancelled";
    quitOutlook();
    open();
    EXPECT_EQ(windowText(control(kControl_PSTLabel)),
              L"Outlook is not running: its folders cannot be shown.");
    press(VK_ESCAPE);
    EXPECT_EQ(storedStates(), L"-1");
}

TEST_F(SelectionWindow, IsTheOnlyOne) {
    store(1, contacts);
    open();
    ASSERT_EQ(connector().ConfigPIM(), S_OK);
    EXPECT_EQ(openDialogs(), std::vector<HWND>{window});
    finish();
    EXPECT_TRUE(isOpen()) << "the entry object may go before it";
    EXPECT_EQ(moduleState().liveObjects, 1) << "the module stays loaded";
    press(VK_RETURN);
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

TEST_F(SelectionWindow, CanBeClosedDuringALongSearch) {
    for (int i = 0; i < 100; ++i) addFolderBelow(contacts, L"Folder " + std::to_wstring(i));
    faults().hangMember(L"MAPIFolder.EntryID", 20);
    store(1, contacts);
    ASSERT_EQ(connector().ConfigPIM(), S_OK);
    window = openDialogs().at(0);
    EXPECT_FALSE(IsWindowEnabled(control(IDOK)));
    EXPECT_EQ(windowText(control(kControl_PSTLabel)), L"Searching for contacts folders...");
    ASSERT_EQ(connector().ConfigPIM(), S_OK);
    EXPECT_EQ(openDialogs().size(), 1u);
    press(VK_RETURN);
    press(VK_ESCAPE);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(storedStates(), L"-1");
    EXPECT_EQ(outlook.server().liveObjects(), 1) << "nothing of Outlook is held any more";
}

TEST_F(SelectionWindow, GrowsWithItsListAndKeepsItsButtons) {
    store(1, contacts);
    open();
    const auto placeOf = [](HWND which) {
        RECT place{};
        GetWindowRect(which, &place);
        return place;
    };
    const RECT before = placeOf(window), listBefore = placeOf(list()), okBefore = placeOf(control(IDOK));
    const LONG width = before.right - before.left, height = before.bottom - before.top;
    SetWindowPos(window, nullptr, before.left, before.top, width + 60, height + 40, SWP_NOZORDER);
    const RECT listAfter = placeOf(list()), okAfter = placeOf(control(IDOK));
    EXPECT_EQ(listAfter.right, listBefore.right + 60);
    EXPECT_EQ(listAfter.bottom, listBefore.bottom + 40);
    EXPECT_EQ(okAfter.left, okBefore.left + 60);
    EXPECT_EQ(okAfter.bottom, okBefore.bottom + 40);
    MINMAXINFO sizes{};
    SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&sizes));
    EXPECT_EQ(sizes.ptMinTrackSize.x, width);
    EXPECT_EQ(sizes.ptMinTrackSize.y, height);
}

TEST_F(SelectionWindow, LongPathsScrollAndShowWhole) {
    const std::wstring outer(90, L'Ł'), inner(90, L'W');
    store(1, addFolderBelow(addFolderBelow(contacts, outer), inner));
    open();
    SCROLLINFO scroll{sizeof(scroll), SIF_RANGE | SIF_PAGE, 0, 0, 0, 0, 0};
    ASSERT_TRUE(GetScrollInfo(list(), SB_HORZ, &scroll));
    EXPECT_GT(scroll.nMax, static_cast<int>(scroll.nPage));
    RECT line{};
    ListView_GetItemRect(list(), 2, &line, LVIR_LABEL);
    SendMessageW(list(), WM_MOUSEMOVE, 0, MAKELPARAM(line.left + 5, line.top + 2));
    // The tip asks for its text when it is about to show; the window answers none but the list's own.
    std::wstring shown;
    for (const HWND tip : windowsOfClass(TOOLTIPS_CLASSW)) {
        NMTTDISPINFOW question{};
        question.hdr = {tip, reinterpret_cast<UINT_PTR>(list()), TTN_GETDISPINFOW};
        SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
        if (question.lpszText) shown = question.lpszText;
    }
    EXPECT_EQ(shown, L"\\Personal Folders\\Contacts\\" + outer + L"\\" + inner);
}

}  // namespace

}  // namespace zelbar
