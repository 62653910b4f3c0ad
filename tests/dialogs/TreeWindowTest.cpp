#include <windows.h>

#include <commctrl.h>

#include "tests/dialogs/SelectionWindowTest.h"

namespace zelbar {

namespace {

/// Outlook's folder tree, opened with the button of the folder selection. The client's loop does not run
/// while it is open.
class TreeWindow : public SelectionWindow {
  protected:
    /// Presses "Select" and does the step in the tree, which must close it.
    void choose(const std::function<void(HWND)>& step) {
        EXPECT_TRUE(pressForModal(control(kControl_CmdSelect), step));
        EXPECT_EQ(openDialogs(), std::vector<HWND>{window});
        EXPECT_TRUE(IsWindowEnabled(window));
    }
    static HWND treeOf(HWND dialog) { return GetDlgItem(dialog, kControl_treeFolder); }
    static std::wstring nameOf(HWND tree, HTREEITEM item) {
        wchar_t text[100] = {};
        TVITEMW question{};
        question.mask = TVIF_TEXT;
        question.hItem = item;
        question.pszText = text;
        question.cchTextMax = 100;
        TreeView_GetItem(tree, &question);
        return text;
    }
    /// The tree as text: each folder with its box before it, and those below it in brackets.
    static std::wstring drawn(HWND tree, HTREEITEM first) {
        std::wstring result;
        for (HTREEITEM item = first; item; item = TreeView_GetNextSibling(tree, item)) {
            const UINT box = TreeView_GetItemState(tree, item, TVIS_STATEIMAGEMASK) >> 12;
            result += std::wstring(L" +*").substr(box, 1) + nameOf(tree, item);
            if (HTREEITEM child = TreeView_GetChild(tree, item)) result += L"(" + drawn(tree, child) + L")";
        }
        return result;
    }
    static void expectDrawn(HWND dialog, const std::wstring& part) {
        const std::wstring all = drawn(treeOf(dialog), TreeView_GetRoot(treeOf(dialog)));
        EXPECT_NE(all.find(part), std::wstring::npos) << all;
    }
    /// Goes to the folder with that name.
    static void goTo(HWND dialog, const std::wstring& name) {
        const HWND tree = treeOf(dialog);
        SetFocus(tree);
        HTREEITEM item = TreeView_GetRoot(tree);
        while (item && nameOf(tree, item) != name) item = TreeView_GetNextVisible(tree, item);
        EXPECT_TRUE(item) << "no folder in sight";
        TreeView_SelectItem(tree, item);
    }
    static void space(HWND dialog) {
        const HWND tree = treeOf(dialog);
        SendMessageW(tree, WM_KEYDOWN, VK_SPACE, 0);
        SendMessageW(tree, WM_CHAR, L' ', 0);
        serveMessages();
    }
    static void create(HWND dialog, const wchar_t* name) {
        SetFocus(GetDlgItem(dialog, kControl_Name));
        SetDlgItemTextW(dialog, kControl_Name, name);
        SendMessageW(dialog, WM_COMMAND, kControl_CmdCreate, 0);
    }
    static void ok(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDOK, 0); }
    static void cancel(HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); }
    static std::wstring answer(HWND dialog) { return windowText(GetDlgItem(dialog, kControl_Answer)); }
};

TEST_F(TreeWindow, ChecksContactsFoldersAndNoOthers) {
    const auto mail = addFolder(L"Łódź", ItemType::Mail);
    addFolderBelow(mail, L"Ügyfelek");
    store(1, contacts);
    open();
    const long before = outlook.server().calls().invocations();
    choose([&](HWND dialog) {
        EXPECT_FALSE(IsWindowEnabled(window));
        expectDrawn(dialog, L"*Contacts");
        expectDrawn(dialog, L" Łódź(+Ügyfelek)");
        goTo(dialog, L"Contacts");
        space(dialog);
        goTo(dialog, L"Łódź");
        space(dialog);
        TreeView_Expand(treeOf(dialog), TreeView_GetSelection(treeOf(dialog)), TVE_EXPAND);
        goTo(dialog, L"Ügyfelek");
        space(dialog);
        expectDrawn(dialog, L" Łódź(*Ügyfelek)");
        ok(dialog);
    });
    EXPECT_EQ(checksOf(list()), L"01");
    EXPECT_EQ(outlook.server().calls().invocations(), before) << "everything has been asked already";
    press(VK_RETURN);
    EXPECT_EQ(storedStates(), L"0 -1");
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

TEST_F(TreeWindow, CancelLeavesTheListAlone) {
    store(1, contacts);
    open();
    choose([&](HWND dialog) {
        goTo(dialog, L"Contacts");
        space(dialog);
        cancel(dialog);
    });
    EXPECT_EQ(checksOf(list()), L"1");
    press(VK_RETURN);
    EXPECT_EQ(storedStates(), L"-1");
    EXPECT_EQ(stored(L"ConfigChanged"), L"0") << "looking at the tree changes nothing";
}

TEST_F(TreeWindow, MakesAContactsFolder) {
    store(1, contacts);
    for (const bool taken : {true, false}) {
        const std::wstring name = taken ? L"Nowe źródła" : L"Unused";
        open();
        choose([&](HWND dialog) {
            goTo(dialog, L"Contacts");
            create(dialog, (L"  " + name + L" ").c_str());
            EXPECT_EQ(answer(dialog), L"");
            expectDrawn(dialog, L"*" + name);
            taken ? ok(dialog) : cancel(dialog);
        });
        const auto made = outlook.mailbox().findFolder(contacts.id, name);
        ASSERT_TRUE(made);
        EXPECT_EQ(made->type, ItemType::Contact);
        EXPECT_EQ(linesOf(list())[taken ? 1u : 2u], L"\\Personal Folders\\Contacts\\" + name);
        EXPECT_EQ(checksOf(list()), taken ? L"11" : L"110");
        press(VK_RETURN);
        EXPECT_EQ(stored(L"ConfigChanged"), L"1");
        EXPECT_EQ(stored(taken ? L"entryId2" : L"entryId3"), entryId(*made));
        EXPECT_EQ(storedStates(), taken ? L"-1 -1" : L"-1 -1 0");
    }
}

TEST_F(TreeWindow, TellsWhyAFolderIsNotMade) {
    addFolderBelow(contacts, L"Old");
    store(1, contacts);
    open();
    choose([&](HWND dialog) {
        const HWND button = GetDlgItem(dialog, kControl_CmdCreate);
        EXPECT_FALSE(IsWindowEnabled(button));
        goTo(dialog, L"Contacts");
        create(dialog, L"OLD");
        EXPECT_TRUE(IsWindowEnabled(button));
        EXPECT_EQ(answer(dialog), L"A folder with this name already exists. Please use another name.");
        faults().failMember(L"Folders.Add", {E_FAIL, L"No rights."});
        create(dialog, L"New");
        EXPECT_EQ(answer(dialog), L"The folder could not be created.\nNo rights.");
        faults().clear();
        ok(dialog);
    });
    press(VK_RETURN);
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
}

}  // namespace

}  // namespace zelbar
