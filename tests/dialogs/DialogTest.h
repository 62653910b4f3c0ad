#pragma once

#include <string>

#include "core/DriverState.h"
#include "dialogs/Controls.h"
#include "tests/dialogs/Windows.h"
#include "tests/fixture/DriverTest.h"
#include "tests/harness/Process.h"

namespace zelbar {

using standin::outlook::FolderRecord;
using standin::outlook::ItemType;

/// The dialogs beside an Outlook that the user has started. Its mailbox has one contacts folder.
class DialogTest : public DriverTest {
  protected:
    DialogTest() { startOutlook(); }
    void TearDown() override {
        if (running_ != 0) quitOutlook();
        DriverTest::TearDown();
    }

    /// As when the user starts and closes Outlook.
    void startOutlook() {
        // Another test's Outlook may be about to leave still, and a person may have left one running.
        Com<IUnknown> other;
        if (SUCCEEDED(GetActiveObject(standin::outlook::kApplicationClsid, nullptr, other.put()))) {
            other.reset();
            harness::runOwn(L"outlook_standin.exe", L"quit");
        }
        ASSERT_EQ(RegisterActiveObject(outlook.application().Get(), standin::outlook::kApplicationClsid,
                                       ACTIVEOBJECT_STRONG, &running_),
                  S_OK);
    }
    void quitOutlook() {
        if (running_ != 0) RevokeActiveObject(running_, nullptr);
        running_ = 0;
        outlook.quit();
    }

    FolderRecord addFolder(const std::wstring& name, ItemType type = ItemType::Contact) {
        return mailbox.addFolder(mailbox.defaultStore().root, name, type);
    }
    FolderRecord addFolderBelow(const FolderRecord& parent, const std::wstring& name) {
        return mailbox.addFolder(parent.id, name, ItemType::Contact);
    }

    /// A value of the stored selection; "(none)" when there is none.
    std::wstring stored(const std::wstring& name) const {
        return registry.get(HKEY_CURRENT_USER, kFolderKey, name).value_or(L"(none)");
    }
    /// The stored check states in their order: '1' for "-1", '0', or '?' for anything else.
    std::wstring storedStates() const {
        std::wstring result, state;
        for (int number = 1; (state = stored(L"selectId" + std::to_wstring(number))) != L"(none)"; ++number)
            result += state == L"-1" ? L'1' : state == L"0" ? L'0' : L'?';
        return result;
    }

  private:
    DWORD running_ = 0;
};

/// The folder selection as its user sees it.
class SelectionWindow : public DialogTest {
  protected:
    /// Opens it through the client's interface and waits until the folders are there.
    void open() {
        ASSERT_EQ(connector().ConfigPIM(), S_OK);
        ASSERT_EQ(openDialogs().size(), 1u);
        window = openDialogs()[0];
        ASSERT_TRUE(serveUntil([&] { return IsWindowEnabled(control(IDOK)); }));
    }
    HWND control(int id) const { return GetDlgItem(window, id); }
    HWND list() const { return control(kControl_listFolder); }
    std::wstring hint() const {
        const HWND label = control(kControl_PSTLabel);
        return IsWindowVisible(label) ? windowText(label) : L"";
    }
    bool isOpen() const { return IsWindow(window); }

    HWND window = nullptr;
};

}  // namespace zelbar
