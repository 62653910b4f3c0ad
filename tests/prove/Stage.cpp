#include "tests/prove/Stage.h"

#include <filesystem>

#include "standin/common/FaultScript.h"
#include "support/Encoding.h"
#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/prove/Imports.h"

namespace prove {

namespace {

using namespace standin::outlook;
using zelbar::utf8;

constexpr wchar_t kSettings[] = L"Software\\Norvane";
constexpr wchar_t kSelection[] = L"Software\\Norvane\\7316\\Popup\\zelbar00folder";
constexpr wchar_t kExport[] = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";

Stage* onStage = nullptr;

/// Another number whenever the file was written to; 0 where there is none.
ULONGLONG writtenAt(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    return (ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32) + data.ftLastWriteTime.dwLowDateTime;
}

}  // namespace

Stage& Stage::current() {
    return *onStage;
}

Stage::Stage() {
    onStage = this;
    Mailbox& box = outlook.mailbox();
    const auto gone = box.addContact(box.specialFolder(SpecialFolder::Contacts).id, {{L"LastName", L"Gone"}});
    hostile::Beside(cacheFile())
        .run(L"Insert Into TCache Values ('Gone', '9', '" + box.entryId(gone) + L"', '1')");
    box.eraseItem(gone.id);
    box.database().run("BEGIN");
    for (const auto& path : {cacheFile(), directoryFile()})
        databases_.push_back({path, harness::readFile(path), writtenAt(path)});
    addRows(rows_);
    reset();
}

Stage::~Stage() {
    onStage = nullptr;
}

HMODULE Stage::loadModule(const wchar_t* name) {
    const std::wstring copy = folder.file(name);
    CopyFileW((harness::programFolder() + L"\\" + name).c_str(), copy.c_str(), FALSE);
    const HMODULE module = LoadLibraryW(copy.c_str());
    if (!module) throw std::runtime_error("what is to be proved cannot be loaded");
    watchImports(module);
    return module;
}

void Stage::set(const wchar_t* key, const wchar_t* name, const std::wstring& value) {
    settingsVersion_ = -1;
    registry.set(HKEY_CURRENT_USER, key, name, value);
}

bool Stage::Database::isAsItWas() const {
    return writtenAt(path) == written;
}

void Stage::makeSettings() {
    Mailbox& box = outlook.mailbox();
    set(hostile::kClientKey, L"DataPath", data);
    set(hostile::kPopupKey, L"NoEmailAddressAccess", L"0");
    for (const wchar_t* name : {L"OutlookTimeout", L"OutlookTimeoutUser"})
        set(hostile::kPopupKey, name, L"0");
    set(kSelection, L"entryId1", box.entryId(box.specialFolder(SpecialFolder::Contacts)));
    set(kSelection, L"storeId1", adaStore);
    set(kSelection, L"selectId1", L"-1");
    set(kExport, L"EntryId", box.entryId(*box.findFolder(box.defaultStore().root, L"Staff")));
    set(kExport, L"StoreId", adaStore);
}

void Stage::reset() {
    revive();
    outlook.quit();
    if (outlook.mailbox().version() != mailboxVersion_) {
        outlook.mailbox().database().run("ROLLBACK; BEGIN");
        mailboxVersion_ = outlook.mailbox().version();
        mailboxFacts_.clear();
        addMailbox(mailboxFacts_);
    }
    for (Database& each : databases_) {
        if (each.isAsItWas()) continue;
        harness::writeFile(each.path, each.bytes);
        each.written = writtenAt(each.path);
    }
    if (registryWrites() != settingsVersion_) {
        RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
        makeSettings();
        settings_.clear();
        addSettings(settings_, HKEY_CURRENT_USER, kSettings);
        settingsVersion_ = registryWrites();
    }
    for (const auto& each : std::filesystem::directory_iterator(data))
        if (each.path().extension() != ".mdb") DeleteFileW(each.path().c_str());
}

// ---- Facts

Facts Stage::facts() {
    Facts result;
    if (outlook.mailbox().version() == mailboxVersion_)
        result = mailboxFacts_;
    else
        addMailbox(result);
    if (databases_[0].isAsItWas())
        result.insert(rows_.begin(), rows_.end());
    else
        addRows(result);
    if (registryWrites() == settingsVersion_)
        result.insert(settings_.begin(), settings_.end());
    else
        addSettings(result, HKEY_CURRENT_USER, kSettings);
    addFiles(result);
    return result;
}

void Stage::addMailbox(Facts& facts) {
    // What lies in the wastebasket has gone. What an export writes are copies, whichever item they stand in;
    // all else is somebody's own.
    const std::string there =
        " item NOT IN (SELECT i.id FROM items i JOIN folders f ON f.id = i.folder AND "
        "f.special = 3)";
    const std::string copied =
        "item IN (SELECT i.id FROM items i JOIN folders f ON f.id = i.folder AND f.name = "
        "'Staff' JOIN userProperties p ON p.item = i.id)";
    const std::string kTables[] = {
        "SELECT 'folder|' || store || '|' || name FROM folders WHERE parent IS NOT NULL AND parent NOT IN "
        "(SELECT id FROM folders WHERE special = 3)",
        "SELECT CASE WHEN " + copied +
            " THEN 'copy|' ELSE 'item|' || item || '|' END || folder "
            "FROM (SELECT id AS item, folder FROM items) WHERE" +
            there,
        "SELECT CASE WHEN name <> 'JobTitle' AND " + copied +
            " THEN 'copy|' ELSE 'field|' || item || '|' END "
            "|| name || '|' || value FROM fields WHERE name NOT IN ('Start', 'End', 'Body') AND" +
            there,
        "SELECT CASE WHEN " + copied +
            " THEN 'copy|' ELSE 'property|' || item || '|' END "
            "|| name || '|' || type || '|' || value FROM userProperties WHERE" +
            there,
        "SELECT 'attachment|' || item || '|' || displayName || '|' || length(data) FROM attachments WHERE" +
            there,
        "SELECT 'recipient|' || item || '|' || name || '|' || type FROM recipients WHERE" + there};
    for (const std::string& sql : kTables)
        for (Query rows(outlook.mailbox().database(), sql); rows.next();) facts.insert(utf8(rows.text(0)));
}

void Stage::addRows(Facts& facts) const {
    if (writtenAt(cacheFile()) == 0) return;
    standin::dao::Connection cache(cacheFile(), standin::dao::Access::readOnly);
    // A store may have got another index.
    auto rows = cache.prepare(
        L"Select 'row|' || Ifnull(Name, '') || '|' || Ifnull(PhoneNumber, '') || '|' || Ifnull(EntryId, '') || '|' "
        L"|| Ifnull((Select StoreID From TStoreID Where [Index] = c.StoreID), 'none') From TCache As c");
    while (rows.step()) facts.insert(utf8(rows.text(0)));
}

void Stage::addSettings(Facts& facts, HKEY root, const std::wstring& path) const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[256];
    BYTE bytes[4096];
    for (DWORD i = 0;; ++i) {
        DWORD length = 256, size = sizeof(bytes);
        if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, bytes, &size) != ERROR_SUCCESS) break;
        const std::string line =
            utf8(name) + "|" + utf8({reinterpret_cast<wchar_t*>(bytes), size / sizeof(wchar_t)});
        // A run's own, and the flag of a filler, which the next one takes back.
        if (line.starts_with("OutlookTimeout") || line.starts_with("Synchro")) continue;
        facts.insert("setting|" + utf8(path) + "|" + line);
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        addSettings(facts, root, path + L"\\" + name);
    }
    RegCloseKey(key);
}

void Stage::addFiles(Facts& facts) const {
    for (const auto& each : std::filesystem::directory_iterator(data)) {
        const std::string name = utf8(each.path().filename().wstring());
        // The databases' content counts, not their size; a lock file shows that one is open.
        if (!name.ends_with(".ldb"))
            facts.insert("file|" + name + "|" +
                         (name.ends_with(".mdb") ? "" : std::to_string(each.file_size())));
    }
}

// ---- Outlook and DAO as the driver finds them

HRESULT Stage::runningOutlook(REFCLSID id, IUnknown** result) {
    if (id != standin::outlook::kApplicationClsid) return MK_E_UNAVAILABLE;
    if (const HRESULT refused = outlook.server().faults().creationOutcome(); FAILED(refused)) return refused;
    *result = outlook.application().Detach();
    return S_OK;
}

void Stage::killOutlook() {
    outlook.quit();
    outlook.server().faults().failCreation(static_cast<HRESULT>(0x80080005));
}

void Stage::killDao() {
    dao.server().quit();
    dao.server().faults().failCreation(REGDB_E_CLASSNOTREG);
}

void Stage::revive() {
    outlook.server().faults().clear();
    dao.server().faults().clear();
}

}  // namespace prove
