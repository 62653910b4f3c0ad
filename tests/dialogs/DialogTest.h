#pragma once

#include <windows.h>

#include <string>

#include "core/DriverState.h"
#include "dialogs/Controls.h"
#include "tests/dialogs/Windows.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

using standin::outlook::FolderRecord;
using standin::outlook::ItemType;

inline constexpr wchar_t kSelectionKey[] = L"Software\\Norvane\\7316\\Popup\\zelbar00folder";

/// The dialogs beside an Outlook that the user has started. Its mailbox has one contacts folder.
class DialogTest : public DriverTest {
  protected:
    DialogTest() { startOutlook(); }
    void TearDown() override;

    /// As when the user starts and closes Outlook.
    void startOutlook();
    void quitOutlook();

    FolderRecord addFolder(const std::wstring& name, ItemType type = ItemType::Contact);
    FolderRecord addFolderBelow(const FolderRecord& parent, const std::wstring& name);

    /// Stores a folder as number `number` of the selection.
    void store(int number, const FolderRecord& which, const wchar_t* selectId = L"-1");
    /// A value of the stored selection; "(none)" when there is none.
    std::wstring stored(const std::wstring& name) const;
    /// The stored check states in their order: '1' for "-1", '0', or '?' for anything else.
    std::wstring storedStates() const;

  private:
    DWORD running_ = 0;
};

/// The folder selection as its user sees it.
class SelectionWindow : public DialogTest {
  protected:
    /// Opens it through the client's interface and waits until the folders are there.
    void open();
    HWND control(int id) const { return GetDlgItem(window, id); }
    HWND list() const { return control(kControl_listFolder); }
    std::wstring hint() const;
    bool isOpen() const { return IsWindow(window); }

    HWND window = nullptr;
};

}  // namespace zelbar
