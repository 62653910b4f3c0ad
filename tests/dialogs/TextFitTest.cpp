#include <windows.h>

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
    void expectTextFits(HWND label, const std::wstring& text) const {
        RECT place{};
        GetClientRect(label, &place);
        const SIZE size = needed(label, text, place.right, DT_WORDBREAK);
        EXPECT_LE(size.cx, place.right) << language << L": " << text;
        EXPECT_LE(size.cy, place.bottom) << language << L": " << text;
    }
    void expectButtonFits(HWND button) const {
        constexpr LONG kFrame = 8, kCheckBox = 20;
        const bool checks = (GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
        RECT place{};
        GetClientRect(button, &place);
        EXPECT_LE(needed(button, windowText(button), 0, DT_SINGLELINE).cx + (checks ? kCheckBox : kFrame),
                  place.right)
            << language << L": " << windowText(button);
    }
    /// All labels and buttons; the letters that Alt goes with must be told apart within one window.
    void expectAllFit(HWND dialog) const {
        std::wstring letters;
        int fitted = 0;
        for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const bool button = SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON;
            if (!button && !(SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_STATIC)) continue;
            const std::wstring text = windowText(child);
            button ? expectButtonFits(child) : expectTextFits(child, text);
            ++fitted;
            const size_t mark = text.find(L'&');
            if (mark == std::wstring::npos || mark + 1 == text.size()) continue;
            wchar_t letter = text[mark + 1];
            CharUpperBuffW(&letter, 1);
            EXPECT_EQ(letters.find(letter), std::wstring::npos) << language << L": " << text;
            letters += letter;
        }
        EXPECT_GE(fitted, 6);
    }
    static std::wstring text(const wchar_t* numbered) { return driver().texts.translate(numbered); }

    std::wstring language;
};

TEST_F(TextFit, InAllLanguages) {
    store(1, contacts);
    for (const wchar_t* index : {L"0", L"1", L"2", L"3", L"4", L"5", L"7", L"8"}) {
        language = index;
        registry.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone\\Settings", L"lang", index);
        driver().languages.CurrentCharset(driver().languages.GetChartset());
        driver().texts.init();
        open();
        expectAllFit(window);
        for (const wchar_t* said : {L"#07103#", L"#07112#", L"#07113#", L"#07114#"})
            expectTextFits(control(kControl_PSTLabel), text(said));
        EXPECT_TRUE(pressForModal(control(kControl_CmdSelect), [&](HWND dialog) {
            expectAllFit(dialog);
            for (const wchar_t* said : {L"#07110#", L"#07124#"})
                expectTextFits(GetDlgItem(dialog, kControl_Answer), text(said));
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }));
        for (const int id : {kControl_Label1, kControl_listFolder, int{IDOK}}) {
            LOGFONTW font{};
            GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control(id), WM_GETFONT, 0, 0)), sizeof(font),
                       &font);
            EXPECT_EQ(font.lfCharSet,
                      language == L"4" || language == L"5" ? EASTEUROPE_CHARSET : ANSI_CHARSET);
        }
        DestroyWindow(window);
    }
}

}  // namespace

}  // namespace zelbar
