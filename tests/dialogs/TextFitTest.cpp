#include <windows.h>

#include "dialogs/frmOutSelFolder.h"
#include "tests/dialogs/SelectionWindowTest.h"

namespace zelbar {

namespace {

/// Every text of the dialogs in every language against the place that its control has.
class TextFit : public SelectionWindow {
  protected:
    /// What a text needs in a control's font when its lines may be that wide.
    static SIZE needed(HWND control, const std::wstring& text, LONG widest, UINT flags) {
        const HDC context = GetDC(control);
        const auto before =
            SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        RECT place{0, 0, widest, 0};
        DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &place, DT_CALCRECT | flags);
        SelectObject(context, before);
        ReleaseDC(control, context);
        return {place.right, place.bottom};
    }
    void expectLabelFits(HWND dialog, int id, const std::wstring& text) const {
        RECT place{};
        GetClientRect(GetDlgItem(dialog, id), &place);
        const SIZE size = needed(GetDlgItem(dialog, id), text, place.right, DT_WORDBREAK);
        EXPECT_LE(size.cx, place.right) << language << L": " << text;
        EXPECT_LE(size.cy, place.bottom) << language << L": " << text;
    }
    void expectButtonFits(HWND dialog, int id, LONG beside) const {
        const HWND button = GetDlgItem(dialog, id);
        RECT place{};
        GetClientRect(button, &place);
        EXPECT_LE(needed(button, windowText(button), 0, DT_SINGLELINE).cx + beside, place.right)
            << language << L": " << windowText(button);
    }
    /// The letters that Alt goes with must be told apart within one window.
    void expectLettersDiffer(HWND dialog, std::initializer_list<int> ids) const {
        std::wstring letters;
        for (const int id : ids) {
            const std::wstring text = windowText(GetDlgItem(dialog, id));
            const size_t mark = text.find(L'&');
            if (mark == std::wstring::npos || mark + 1 == text.size()) continue;
            wchar_t letter = text[mark + 1];
            CharUpperBuffW(&letter, 1);
            EXPECT_EQ(letters.find(letter), std::wstring::npos) << language << L": " << text;
            letters += letter;
        }
    }
    static std::wstring text(const wchar_t* numbered) { return driver().texts.translate(numbered); }

    std::wstring language;
};

TEST_F(TextFit, InAllLanguages) {
    constexpr LONG kButtonFrame = 8, kCheckBox = 20;
    store(1, contacts);
    for (const wchar_t* index : {L"0", L"1", L"2", L"3", L"4", L"5", L"7", L"8"}) {
        language = index;
        registry.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone\\Settings", L"lang", index);
        driver().languages.CurrentCharset(driver().languages.GetChartset());
        driver().texts.init();
        showFolderSelection();
        window = openDialogs().at(0);
        ASSERT_TRUE(serveUntil([&] { return IsWindowEnabled(control(IDOK)); }));
        for (const int id : {kControl_Label1, kControl_Label2})
            expectLabelFits(window, id, windowText(control(id)));
        for (const wchar_t* said : {L"#07103#", L"#07112#", L"#07113#", L"#07114#"})
            expectLabelFits(window, kControl_PSTLabel, text(said));
        expectButtonFits(window, kControl_ReinitCheck, kCheckBox);
        for (const int id : {kControl_CmdSelect, int{IDOK}, int{IDCANCEL}})
            expectButtonFits(window, id, kButtonFrame);
        expectLettersDiffer(window, {kControl_ReinitCheck, kControl_CmdSelect, IDOK, IDCANCEL});
        ModalSteps steps({[&](HWND dialog) {
            for (const int id : {kControl_TreeLabel, kControl_NameLabel})
                expectLabelFits(dialog, id, windowText(GetDlgItem(dialog, id)));
            for (const wchar_t* said : {L"#07110#", L"#07124#"})
                expectLabelFits(dialog, kControl_Answer, text(said));
            for (const int id : {kControl_CmdCreate, int{IDOK}, int{IDCANCEL}})
                expectButtonFits(dialog, id, kButtonFrame);
            expectLettersDiffer(dialog,
                                {kControl_TreeLabel, kControl_NameLabel, kControl_CmdCreate, IDOK, IDCANCEL});
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }});
        SendMessageW(control(kControl_CmdSelect), BM_CLICK, 0, 0);
        serveMessages();
        EXPECT_TRUE(steps.done());
        DestroyWindow(window);
    }
}

}  // namespace

}  // namespace zelbar
