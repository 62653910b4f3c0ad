#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/DriverState.h"
#include "dialogs/FolderSelection.h"
#include "tests/fixture/DriverTest.h"

namespace zelbar {

using standin::outlook::FolderRecord;
using standin::outlook::ItemType;
using standin::outlook::SpecialFolder;

inline constexpr wchar_t kSelectionKey[] = L"Software\\Norvane\\7316\\Popup\\zelbar00folder";

/// The dialogs beside an Outlook that the user has started. Its mailbox has one contacts folder, `contacts`.
class DialogTest : public DriverTest {
  protected:
    DialogTest();
    ~DialogTest() override;
    void TearDown() override;

    /// As when the user starts and closes Outlook.
    void startOutlook();
    void quitOutlook();
    bool running() const { return running_ != 0; }
    standin::FaultScript& faults() { return outlook.server().faults(); }

    FolderRecord addFolder(const std::wstring& name, ItemType type = ItemType::Contact);
    FolderRecord addFolderBelow(const FolderRecord& parent, const std::wstring& name,
                                ItemType type = ItemType::Contact);
    std::wstring entryId(const FolderRecord& which) { return outlook.mailbox().entryId(which); }
    std::wstring storeId(const FolderRecord& which) { return outlook.mailbox().storeId(which.store); }

    /// Stores a folder as number `number` of the selection.
    void store(int number, const FolderRecord& which, const wchar_t* selectId = L"-1");
    void setPopup(const wchar_t* name, const wchar_t* value);
    /// A value of the stored selection; "(none)" when there is none.
    std::wstring stored(const std::wstring& name) const;
    /// The stored check states in their order, as in "-1 0 -1".
    std::wstring storedStates() const;

    /// A selection that has been searched and loaded.
    static FolderSelection loaded();

    FolderRecord contacts;

  private:
    DWORD running_ = 0;
};

}  // namespace zelbar
