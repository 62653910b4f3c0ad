#include "tests/dialogs/DialogTest.h"

namespace zelbar {

namespace {

/// Every text of the dialogs in every language against the place that its control has.
class TextFit : public SelectionWindow {
  protected:
    void expectFits(HWND control, const std::wstring& text, UINT flags, LONG beside) const {
        RECT place{}, needed{};
        GetClientRect(control, &place);
        needed.right = place.right;
        const HDC context = GetDC(control);
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
        DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &needed, DT_CALCRECT | flags);
        ReleaseDC(control, context);
        EXPECT_LE(needed.right + beside, place.right) << language << L": " << text;
        EXPECT_LE(needed.bottom, place.bottom) << language << L": " << text;
    }
    /// All labels and buttons; the letters that Alt goes with must be told apart within one window.
    void expectAllFit(HWND dialog) const {
        constexpr LONG kFrame = 8, kCheckBox = 20;
        std::wstring letters;
        for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            const LRESULT kind = SendMessageW(child, WM_GETDLGCODE, 0, 0);
            if (!(kind & (DLGC_BUTTON | DLGC_STATIC))) continue;
            const bool button = kind & DLGC_BUTTON;
            const bool checks = (GetWindowLongW(child, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
            const std::wstring text = windowText(child);
            const LONG beside = !button ? 0 : checks ? kCheckBox : kFrame;
            expectFits(child, text, button ? DT_SINGLELINE : DT_WORDBREAK, beside);
            const size_t mark = text.find(L'&');
            if (mark == text.npos) continue;
            const std::wstring letter(1, static_cast<wchar_t>(towupper(text.at(mark + 1))));
            EXPECT_EQ(letters.find(letter), text.npos) << language << L": " << text;
            letters += letter;
        }
        EXPECT_GE(letters.size(), 3u);
    }
    static std::wstring text(const wchar_t* numbered) { return driver().texts.translate(numbered); }

    std::wstring language;
};

TEST_F(TextFit, InAllLanguages) {
    chooseFolder(1, defaultContacts);
    for (const wchar_t* index : {L"0", L"1", L"2", L"3", L"4", L"5", L"7", L"8"}) {
        language = index;
        registry.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone\\Settings", L"lang", index);
        driver().languages.CurrentCharset(driver().languages.GetChartset());
        driver().texts.init();
        open();
        expectAllFit(window);
        for (const std::wstring& said :
             {text(L"#07103#") + L" " + text(L"#07117#"), text(L"#07113#") + L" " + text(L"#07115#"),
              text(L"#07114#") + L" " + text(L"#07116#") + L" " + text(L"#07117#")})
            expectFits(control(kControl_PSTLabel), said, DT_WORDBREAK, 0);
        expectFits(control(kControl_Count), text(L"#07118#") + L"100100", DT_WORDBREAK, 0);
        EXPECT_TRUE(pressForModal(control(kControl_CmdSelect), [&](HWND dialog) {
            expectAllFit(dialog);
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }));
        driver().user.messageWindow->ShowMessage(L"Title", 0, L"Text");
        for (const HWND said : {list(), GetDlgItem(openDialogs().at(0), IDOK)}) {
            LOGFONTW font{};
            GetObjectW(reinterpret_cast<HFONT>(SendMessageW(said, WM_GETFONT, 0, 0)), sizeof(font), &font);
            EXPECT_EQ(font.lfCharSet,
                      language == L"4" || language == L"5" ? EASTEUROPE_CHARSET : ANSI_CHARSET);
        }
        DestroyWindow(openDialogs().at(0));
        DestroyWindow(window);
    }
}

}  // namespace

}  // namespace zelbar
