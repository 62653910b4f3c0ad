#include <windows.h>

#include <commctrl.h>

#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

/// Outlook's folder tree, opened with the button of the folder selection. The client's loop does not run
/// while it is open.
class TreeWindow : public SelectionWindow {
  protected:
    /// Opens both windows, does the step in the tree and closes that with the button.
    void choose(const std::function<void()>& step, int button = IDOK) {
        if (!isOpen()) open();
        EXPECT_TRUE(pressForModal(control(kControl_CmdSelect), [&](HWND opened) {
            dialog = opened;
            tree = GetDlgItem(dialog, kControl_treeFolder);
            EXPECT_FALSE(IsWindowEnabled(window));
            step();
            PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        }));
        EXPECT_EQ(openDialogs(), std::vector<HWND>{window});
        EXPECT_TRUE(IsWindowEnabled(window));
    }
    std::wstring nameOf(HTREEITEM item) const {
        wchar_t text[100] = {};
        TVITEMW question{TVIF_TEXT, item, 0, 0, text, 100, 0, 0, 0, 0};
        TreeView_GetItem(tree, &question);
        return text;
    }
    /// The tree as text: each folder with its box before it, and those below it in brackets.
    std::wstring drawn(HTREEITEM first) const {
        std::wstring result;
        for (HTREEITEM item = first; item; item = TreeView_GetNextSibling(tree, item)) {
            const UINT box = TreeView_GetItemState(tree, item, TVIS_STATEIMAGEMASK) >> 12;
            result += std::wstring(L" +*").substr(box, 1) + nameOf(item);
            if (HTREEITEM child = TreeView_GetChild(tree, item)) result += L"(" + drawn(child) + L")";
        }
        return result;
    }
    std::wstring drawn() const { return drawn(TreeView_GetRoot(tree)); }
    /// Goes to the folder with that name, which must be in sight, and perhaps presses Space.
    void goTo(const std::wstring& name, bool space = false) const {
        HTREEITEM item = TreeView_GetRoot(tree);
        while (item && nameOf(item) != name) item = TreeView_GetNextVisible(tree, item);
        EXPECT_TRUE(item) << "no folder in sight";
        TreeView_SelectItem(tree, item);
        if (space) SendMessageW(tree, WM_KEYDOWN, VK_SPACE, 0);
        if (space) SendMessageW(tree, WM_CHAR, L' ', 0);
        serveMessages();
    }
    /// Types a name and presses what Enter presses there; the answer.
    std::wstring create(const wchar_t* name) const {
        SetFocus(GetDlgItem(dialog, kControl_Name));
        SetDlgItemTextW(dialog, kControl_Name, name);
        EXPECT_EQ(LOWORD(SendMessageW(dialog, DM_GETDEFID, 0, 0)), *name ? kControl_CmdCreate : IDOK);
        if (*name) SendDlgItemMessageW(dialog, kControl_CmdCreate, BM_CLICK, 0, 0);
        return windowText(GetDlgItem(dialog, kControl_Answer));
    }

    HWND dialog = nullptr;
    HWND tree = nullptr;
};

TEST_F(TreeWindow, ChecksContactsFoldersAndNoOthers) {
    addFolderBelow(addFolder(L"Łódź", ItemType::Mail), L"Ügyfelek");
    chooseFolder(1, defaultContacts);
    HIMAGELIST boxes = nullptr;
    for (const int button : {IDCANCEL, IDOK}) {
        choose(
            [&] {
                EXPECT_NE(drawn().find(L" Łódź(+Ügyfelek)"), std::wstring::npos) << drawn();
                goTo(L"Contacts", true);
                goTo(L"Łódź", true);
                TreeView_Expand(tree, TreeView_GetSelection(tree), TVE_EXPAND);
                goTo(L"Ügyfelek", true);
                EXPECT_NE(drawn().find(L" Łódź(*Ügyfelek)"), std::wstring::npos) << drawn();
                EXPECT_NE(drawn().find(L"+Contacts"), std::wstring::npos) << drawn();
                EXPECT_EQ(create(L""), L"");
                boxes = TreeView_GetImageList(tree, TVSIL_STATE);
            },
            button);
        EXPECT_EQ(checksOf(list()), button == IDOK ? L"01" : L"10");
        EXPECT_EQ(ImageList_GetImageCount(boxes), 0) << "its pictures have gone with it";
    }
    press(VK_RETURN);
    EXPECT_EQ(storedStates(), L"01");
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

TEST_F(TreeWindow, MakesAContactsFolder) {
    chooseFolder(1, defaultContacts);
    for (const bool taken : {true, false}) {
        const std::wstring name = taken ? L"Nowe źródła" : L"Unused";
        choose(
            [&] {
                goTo(L"Contacts");
                EXPECT_EQ(windowText(GetDlgItem(dialog, kControl_NameLabel)),
                          L"New contacts folder below \"Contacts\":");
                EXPECT_EQ(create((L"  " + name + L" ").c_str()), L"");
                EXPECT_NE(drawn().find(L"*" + name), std::wstring::npos) << drawn();
            },
            taken ? IDOK : IDCANCEL);
        const auto made = mailbox.findFolder(defaultContacts.id, name);
        ASSERT_TRUE(made);
        EXPECT_EQ(made->type, ItemType::Contact);
        EXPECT_EQ(linesOf(list())[taken ? 1u : 2u], L"\\Personal Folders\\Contacts\\" + name);
        press(VK_RETURN);
        EXPECT_EQ(stored(L"ConfigChanged"), L"1");
        EXPECT_EQ(stored(taken ? L"entryId2" : L"entryId3"), mailbox.entryId(*made));
        EXPECT_EQ(storedStates(), taken ? L"11" : L"110");
    }
    const auto mail = addFolder(L"Łódź", ItemType::Mail);
    choose([&] {
        goTo(L"Łódź");
        EXPECT_EQ(create(L"Team"), L"");
    });
    EXPECT_TRUE(mailbox.findFolder(mail.id, L"Team")) << "below any other";
}

TEST_F(TreeWindow, TellsWhyAFolderIsNotMade) {
    addFolderBelow(defaultContacts, L"Old");
    chooseFolder(1, defaultContacts);
    const standin::Failure refused{E_FAIL, L"No rights & none to come."};
    const std::wstring answer = L"The folder could not be created.\r\n" + *refused.description;
    choose([&] {
        goTo(L"Contacts");
        EXPECT_EQ(create(L"OLD"), L"A folder with this name already exists. Please use another name.");
        faults().failMember(L"Folders.Add", refused, 1);
        EXPECT_EQ(create(L"New"), answer);
        faults().failMember(L"MAPIFolder.EntryID", refused, 1);
        EXPECT_EQ(create(L"New"), answer) << "taken back, since nobody could choose it";
        EXPECT_FALSE(mailbox.findFolder(defaultContacts.id, L"New"));
    });
    press(VK_RETURN);
    EXPECT_EQ(stored(L"ConfigChanged"), L"0");
    choose([&] {
        goTo(L"Contacts");
        faults().failMember(L"MAPIFolder.EntryID", refused, 1);
        faults().failMember(L"MAPIFolder.Delete", refused, 1);
        EXPECT_EQ(create(L"New"), L"The folder was created but cannot be read. Open this window again.");
        EXPECT_NE(drawn().find(L" New"), std::wstring::npos) << drawn();
    });
    press(VK_RETURN);
    EXPECT_EQ(stored(L"ConfigChanged"), L"1");
}

}  // namespace

}  // namespace zelbar
