#pragma once

#include <windows.h>

#include "dialogs/Controls.h"
#include "tests/dialogs/DialogTest.h"
#include "tests/dialogs/Windows.h"

namespace zelbar {

/// The folder selection as its user sees it.
class SelectionWindow : public DialogTest {
  protected:
    void TearDown() override {
        for (const HWND left : openDialogs()) DestroyWindow(left);
        DialogTest::TearDown();
    }
    /// Opens it through the client's interface and waits until the folders are there.
    void open() {
        ASSERT_EQ(connector().ConfigPIM(), S_OK);
        ASSERT_EQ(openDialogs().size(), 1u);
        window = openDialogs()[0];
        ASSERT_TRUE(serveUntil([&] { return IsWindowEnabled(control(IDOK)); }));
    }
    HWND control(int id) const { return GetDlgItem(window, id); }
    HWND list() const { return control(kControl_listFolder); }
    bool isOpen() const { return IsWindow(window); }

    HWND window = nullptr;
};

}  // namespace zelbar
