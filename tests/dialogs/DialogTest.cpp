#include "tests/dialogs/DialogTest.h"

#include "tests/harness/Process.h"

namespace zelbar {

void DialogTest::TearDown() {
    if (running_ != 0) quitOutlook();
    DriverTest::TearDown();
}

void DialogTest::startOutlook() {
    // Another test's Outlook may be about to leave still, and a person may have left one running.
    Com<IUnknown> other;
    if (SUCCEEDED(GetActiveObject(standin::outlook::kApplicationClsid, nullptr, other.put()))) {
        other.reset();
        harness::runOwn(L"outlook_standin.exe", L"quit");
    }
    const auto application = outlook.application();
    ASSERT_EQ(RegisterActiveObject(application.Get(), standin::outlook::kApplicationClsid,
                                   ACTIVEOBJECT_STRONG, &running_),
              S_OK);
}

void DialogTest::quitOutlook() {
    if (running_ != 0) RevokeActiveObject(running_, nullptr);
    running_ = 0;
    outlook.quit();
}

FolderRecord DialogTest::addFolder(const std::wstring& name, ItemType type) {
    return mailbox.addFolder(mailbox.defaultStore().root, name, type);
}

FolderRecord DialogTest::addFolderBelow(const FolderRecord& parent, const std::wstring& name) {
    return mailbox.addFolder(parent.id, name, ItemType::Contact);
}

void DialogTest::store(int number, const FolderRecord& which, const wchar_t* selectId) {
    const std::pair<const wchar_t*, std::wstring> values[] = {{L"entryId", mailbox.entryId(which)},
                                                              {L"storeId", mailbox.storeId(which.store)},
                                                              {L"selectId", selectId}};
    for (const auto& [name, value] : values)
        registry.set(HKEY_CURRENT_USER, kSelectionKey, name + std::to_wstring(number), value);
}

std::wstring DialogTest::stored(const std::wstring& name) const {
    return registry.get(HKEY_CURRENT_USER, kSelectionKey, name).value_or(L"(none)");
}

std::wstring DialogTest::storedStates() const {
    std::wstring result, state;
    for (int number = 1; (state = stored(L"selectId" + std::to_wstring(number))) != L"(none)"; ++number)
        result += state == L"-1" ? L'1' : state == L"0" ? L'0' : L'?';
    return result;
}

void SelectionWindow::open() {
    ASSERT_EQ(connector().ConfigPIM(), S_OK);
    ASSERT_EQ(openDialogs().size(), 1u);
    window = openDialogs()[0];
    ASSERT_TRUE(serveUntil([&] { return IsWindowEnabled(control(IDOK)); }));
}

std::wstring SelectionWindow::hint() const {
    const HWND label = control(kControl_PSTLabel);
    return IsWindowVisible(label) ? windowText(label) : L"";
}

}  // namespace zelbar
