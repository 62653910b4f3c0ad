// Wine and Windows 10 know more than the oldest system that the driver runs on.
#undef WINVER
#define WINVER 0x0A00

#include <windows.h>

#include <commctrl.h>

#include "com/ModuleState.h"
#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

TEST_F(SelectionWindow, ShowsTheFoldersAndSavesWithEnter) {
    const auto polish = addFolder(L"Źródła & Łódź"), umlauts = addFolder(L"Ümläute");
    chooseFolder(1, defaultContacts, L"0");
    chooseFolder(2, polish);
    open();
    EXPECT_EQ(hint(), L"");
    EXPECT_EQ(linesOf(list())[1], L"\\Personal Folders\\Źródła & Łódź");
    EXPECT_EQ(checksOf(list()), L"010");
    EXPECT_EQ(windowText(control(kControl_Count)), L"1 of 3 checked");
    EXPECT_EQ(ListView_GetNextItem(list(), -1, LVNI_FOCUSED | LVNI_SELECTED), 1) << "the first checked one";
    press(VK_DOWN);
    // Of several chosen lines all take the mark that the current one does not have.
    ListView_SetItemState(list(), 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    press(VK_SPACE);
    EXPECT_EQ(checksOf(list()), L"111");
    EXPECT_EQ(windowText(control(kControl_Count)), L"3 of 3 checked");
    press(VK_RETURN);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(storedStates(), L"111");
    EXPECT_EQ(stored(L"entryId3"), mailbox.entryId(umlauts));
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

TEST_F(SelectionWindow, CancelKeepsWhatIsStoredAndOkTakesAWishForANewCacheAlone) {
    chooseFolder(1, defaultContacts);
    open();
    press(VK_SPACE);
    EXPECT_EQ(checksOf(list()), L"0");
    ASSERT_EQ(connector().ConfigPIM(), S_OK);
    EXPECT_EQ(openDialogs(), std::vector<HWND>{window}) << "there is one";
    press(VK_ESCAPE);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(storedStates(), L"1");
    EXPECT_EQ(stored(L"ConfigChanged"), L"(none)");
    open();
    CheckDlgButton(window, kControl_ReinitCheck, BST_CHECKED);
    finish();
    EXPECT_EQ(moduleState().liveObjects, 1) << "it outlives the entry object";
    SendMessageW(control(IDOK), BM_CLICK, 0, 0);
    EXPECT_EQ(moduleState().liveObjects, 0);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1") << "the user has asked for it";
}

TEST_F(SelectionWindow, NothingIsLostUnaskedWhenFoldersAreMissing) {
    chooseFolder(1, defaultContacts);
    chooseFolder(2, addFolder(L"Other"));
    const std::wstring some = L"Some folders could not be read and are missing here. OK would ";
    const std::pair<std::function<void()>, std::wstring> ways[] = {
        {[this] {
             faults().failMember(L"MAPIFolder.DefaultItemType", {E_FAIL, L"Offline."}, 1);
         },
         some + L"remove them from the stored selection."},
        {[this] { faults().quitAtCall(20); }, some + L"erase the stored selection."},
        {[this] { quitOutlook(); },
         L"Outlook is not running: its folders cannot be shown. OK would erase the stored selection."},
    };
    for (const auto& [spoil, said] : ways) {
        spoil();
        open();
        EXPECT_EQ(hint(), said);
        EXPECT_EQ(GetFocus(), control(IDCANCEL));
        press(VK_RETURN);
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(storedStates(), L"11");
        EXPECT_EQ(stored(L"ConfigChanged"), L"(none)");
        faults().clear();
    }
    open();
    startOutlook();
    SendMessageW(control(kControl_CmdRetry), BM_CLICK, 0, 0);
    EXPECT_TRUE(serveUntil([&] { return hint().empty(); })) << hint();
    EXPECT_EQ(checksOf(list()), L"11");
    EXPECT_FALSE(IsWindowVisible(control(kControl_CmdRetry)));
}

TEST_F(SelectionWindow, TellsWhatDoesNotFit) {
    const auto gone = addFolder(L"Gone");
    for (int i = 0; i < 16; ++i) addFolder(L"F" + std::to_wstring(100 + i));
    chooseFolder(1, defaultContacts);
    chooseFolder(2, gone);
    mailbox.eraseFolder(gone.id);
    open();
    EXPECT_EQ(
        hint(),
        L"The selection has changed because of contacts files added or removed in Outlook. Only the first "
        L"sixteen folders are remembered.");
    EXPECT_EQ(stored(L"ConfigChanged"), L"1") << "saved before the user cancelled";
}

TEST_F(SelectionWindow, ItsUserMayGoWhileOutlookIsAsked) {
    chooseFolder(1, defaultContacts);
    const auto send = [this](UINT message, WPARAM what) {
        window = openDialogs().empty() ? nullptr : openDialogs()[0];
        SendMessageW(window, message, what, 0);
    };
    const std::pair<std::function<void()>, bool> deeds[] = {
        {[&] { send(WM_COMMAND, IDCANCEL); }, false},
        {[&] { send(WM_COMMAND, IDCANCEL), DestroyWindow(window); }, false},
        {[&] { send(WM_TIMER, 1); }, true},
        {[&] { send(WM_COMMAND, IDCANCEL), connector().ConfigPIM(); }, true},
        {[&] { finish(); }, true},
    };
    for (const auto& [deed, stays] : deeds) {
        int calls = 0;
        faults().onEachCall([&](auto...) {
            if (++calls == 10) deed();
            return std::nullopt;
        });
        connector().ConfigPIM();
        faults().clear();
        serveMessages();
        ASSERT_EQ(openDialogs().size(), stays ? 1u : 0u);
        if (stays) {
            window = openDialogs()[0];
            EXPECT_TRUE(serveUntil([&] { return IsWindowEnabled(control(IDOK)); }));
            EXPECT_EQ(checksOf(list()), L"1");
            press(VK_ESCAPE);
        }
        EXPECT_LE(outlook.server().liveObjects(), 1) << "nothing of Outlook is held any more";
    }
}

TEST_F(SelectionWindow, GrowsWithItsListAndIsScaledByWindows) {
    chooseFolder(1, defaultContacts);
    const auto before = SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    open();
    EXPECT_TRUE(AreDpiAwarenessContextsEqual(SetThreadDpiAwarenessContext(before),
                                             DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE));
    EXPECT_EQ(GetAwarenessFromDpiAwarenessContext(GetWindowDpiAwarenessContext(window)),
              DPI_AWARENESS_SYSTEM_AWARE);
    const auto sizeOf = [](HWND which) {
        RECT place{};
        GetWindowRect(which, &place);
        return std::pair(place.right - place.left, place.bottom - place.top);
    };
    const auto [width, height] = sizeOf(window);
    const auto [listWidth, listHeight] = sizeOf(list());
    const auto ok = sizeOf(control(IDOK));
    SetWindowPos(window, nullptr, 0, 0, width + 60, height + 40, SWP_NOZORDER);
    EXPECT_EQ(sizeOf(list()), std::pair(listWidth + 60, listHeight + 40));
    EXPECT_EQ(sizeOf(control(IDOK)), ok);
    SetWindowPos(window, nullptr, 0, 0, 10, 10, SWP_NOZORDER);
    EXPECT_EQ(sizeOf(window), std::pair(width, height)) << "its smallest size";
}

TEST_F(SelectionWindow, LongPathsKeepTheirEndAndShowWholeInATip) {
    const std::wstring outer(200, L'Ł'), inner(60, L'W'), path = L"\\Personal Folders\\Contacts\\" + outer;
    chooseFolder(1, addFolderBelow(addFolderBelow(defaultContacts, outer), inner));
    open();
    EXPECT_EQ(linesOf(list())[1], path);
    EXPECT_TRUE(linesOf(list())[2].ends_with(L"Ł\\" + inner));
    RECT line{};
    ListView_GetItemRect(list(), 2, &line, LVIR_LABEL);
    SendMessageW(list(), WM_MOUSEMOVE, 0, MAKELPARAM(line.left + 5, line.top + 2));
    // The tip asks for its text when it is about to show; the window answers none but the list's own.
    std::wstring shown;
    for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr));) {
        NMTTDISPINFOW question{};
        question.hdr = {tip, reinterpret_cast<UINT_PTR>(list()), TTN_GETDISPINFOW};
        SendMessageW(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&question));
        if (question.lpszText && *question.lpszText) shown = question.lpszText;
    }
    EXPECT_TRUE(shown.ends_with(L"\r\n\\" + inner)) << shown;
    std::erase_if(shown, [](wchar_t letter) { return letter == L'\r' || letter == L'\n'; });
    EXPECT_EQ(shown, path + L"\\" + inner);
}

}  // namespace

}  // namespace zelbar
