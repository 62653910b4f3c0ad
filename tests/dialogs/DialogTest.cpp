#include "tests/dialogs/DialogTest.h"

#include "tests/harness/Process.h"

namespace zelbar {

namespace {

/// Another test's Outlook may be about to leave still, and a person may have left one running.
void awaitNoOutlook() {
    Com<IUnknown> running;
    if (FAILED(GetActiveObject(standin::outlook::kApplicationClsid, nullptr, running.put()))) return;
    running.reset();
    harness::run(L"\"" + harness::programFolder() + L"\\outlook_standin.exe\" quit");
}

}  // namespace

DialogTest::DialogTest() : contacts(outlook.mailbox().specialFolder(SpecialFolder::Contacts)) {
    startOutlook();
}

DialogTest::~DialogTest() {
    if (running_ != 0) RevokeActiveObject(running_, nullptr);
}

void DialogTest::TearDown() {
    if (running_ != 0) quitOutlook();
    DriverTest::TearDown();
}

void DialogTest::startOutlook() {
    awaitNoOutlook();
    const auto application = outlook.application();
    ASSERT_EQ(RegisterActiveObject(application.Get(), standin::outlook::kApplicationClsid,
                                   ACTIVEOBJECT_STRONG, &running_),
              S_OK);
}

void DialogTest::quitOutlook() {
    RevokeActiveObject(running_, nullptr);
    running_ = 0;
    outlook.quit();
}

FolderRecord DialogTest::addFolder(const std::wstring& name, ItemType type) {
    return outlook.mailbox().addFolder(outlook.mailbox().defaultStore().root, name, type);
}

FolderRecord DialogTest::addFolderBelow(const FolderRecord& parent, const std::wstring& name, ItemType type) {
    return outlook.mailbox().addFolder(parent.id, name, type);
}

void DialogTest::store(int number, const FolderRecord& which, const wchar_t* selectId) {
    const std::wstring digits = std::to_wstring(number);
    registry.set(HKEY_CURRENT_USER, kSelectionKey, L"entryId" + digits, entryId(which));
    registry.set(HKEY_CURRENT_USER, kSelectionKey, L"storeId" + digits, storeId(which));
    registry.set(HKEY_CURRENT_USER, kSelectionKey, L"selectId" + digits, selectId);
}

void DialogTest::setPopup(const wchar_t* name, const wchar_t* value) {
    registry.set(HKEY_CURRENT_USER, kPopupKey, name, value);
}

std::wstring DialogTest::stored(const std::wstring& name) const {
    return registry.get(HKEY_CURRENT_USER, kSelectionKey, name).value_or(L"(none)");
}

std::wstring DialogTest::storedStates() const {
    std::wstring result;
    for (int number = 1;; ++number) {
        const auto state =
            registry.get(HKEY_CURRENT_USER, kSelectionKey, L"selectId" + std::to_wstring(number));
        if (!state) return result;
        result += (result.empty() ? L"" : L" ") + *state;
    }
}

FolderSelection DialogTest::loaded() {
    driver().log.load();
    FolderSelection selection;
    while (selection.search()) {
    }
    selection.load();
    return selection;
}

}  // namespace zelbar
