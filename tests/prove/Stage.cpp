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

/// Another number whenever the file was written to; 0 where there is none.
ULONGLONG writtenAt(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    return (ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32) + data.ftLastWriteTime.dwLowDateTime;
}

}  // namespace

Stage::Stage() {
    current_ = this;
    Mailbox& box = outlook.mailbox();
    const auto gone = box.addContact(box.specialFolder(SpecialFolder::Contacts).id, {{L"LastName", L"Gone"}});
    hostile::Beside(cacheFile())
        .run(L"Insert Into TCache Values ('Gone', '9', '" + box.entryId(gone) + L"', '1')");
    box.eraseItem(gone.id);
    box.database().run("BEGIN");
    parts_ = {{[&] { return static_cast<ULONGLONG>(box.version()); },
               [&] { box.database().run("ROLLBACK; BEGIN"); }, [this] { return readMailbox(); }},
              databaseAsItIs(cacheFile(), [this] { return readRows(); }),
              databaseAsItIs(directoryFile(), [] { return Facts(); }),
              {[this] { return static_cast<ULONGLONG>(imports.writes + made_); }, [this] { makeSettings(); },
               [this] { return readSettings(kSettings); }}};
    // Tables may be read, by the version that has some.
    registry.set(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Microsoft\\Office\\16.0\\Outlook\\Security",
                 L"ObjectModelGuard", REG_DWORD, {'\2', 0, 0, 0});
    reset();
}

Stage::Part Stage::databaseAsItIs(const std::wstring& path, std::function<Facts()> read) const {
    const auto restore = [path, bytes = harness::readFile(path)] { harness::writeFile(path, bytes); };
    return {[path] { return writtenAt(path); }, restore, std::move(read)};
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
    ++made_;
    registry.set(HKEY_CURRENT_USER, key, name, value);
}

void Stage::makeSettings() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
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
    outlook.server().setOption(L"Version", {});
    for (Part& part : parts_) {
        if (part.version() == part.known) continue;
        part.restore();
        part.known = part.version();
        part.facts = part.read();
    }
    for (const auto& each : std::filesystem::directory_iterator(data))
        if (each.path().extension() != ".mdb") DeleteFileW(each.path().c_str());
}

// ---- Facts

Facts Stage::facts() {
    Facts result;
    for (const Part& part : parts_)
        result.merge(part.version() == part.known ? Facts(part.facts) : part.read());
    for (const auto& each : std::filesystem::directory_iterator(data)) {
        const std::string name = utf8(each.path().filename().wstring());
        // The databases' content counts, not their size; a lock file shows that one is open.
        const bool isDatabase = name.ends_with(".mdb");
        if (!name.ends_with(".ldb"))
            result.insert("file|" + name + "|" + (isDatabase ? "" : std::to_string(each.file_size())));
    }
    return result;
}

Facts Stage::readMailbox() {
    // What lies in the wastebasket has gone. What an export writes are copies, whichever item they stand in;
    // all else is somebody's own.
    const std::string with =
        "WITH wastebasket AS (SELECT id FROM folders WHERE special = 3), "
        "gone AS (SELECT id FROM items WHERE folder IN wastebasket), "
        "copied AS (SELECT i.id FROM items i JOIN folders f ON f.id = i.folder "
        "JOIN userProperties p ON p.item = i.id WHERE f.name = 'Staff') SELECT ";
    const char* const kLines[] = {
        "'folder|' || store || '|' || name FROM folders WHERE parent IS NOT NULL AND parent NOT IN wastebasket",
        "iif(id IN copied, 'copy|', 'item|' || id || '|') || folder FROM items WHERE id NOT IN gone",
        "iif(name <> 'JobTitle' AND item IN copied, 'copy|', 'field|' || item || '|') || name || '|' || value "
        "FROM fields WHERE name NOT IN ('Start', 'End', 'Body') AND item NOT IN gone",
        "iif(item IN copied, 'copy|', 'property|' || item || '|') || name || '|' || type || '|' || value "
        "FROM userProperties WHERE item NOT IN gone",
        "'attachment|' || item || '|' || displayName || '|' || length(data) FROM attachments "
        "WHERE item NOT IN gone",
        "'recipient|' || item || '|' || name || '|' || type FROM recipients WHERE item NOT IN gone"};
    Facts facts;
    for (const char* lines : kLines)
        for (Query rows(outlook.mailbox().database(), with + lines); rows.next();)
            facts.insert(utf8(rows.text(0)));
    return facts;
}

Facts Stage::readRows() const {
    Facts facts;
    if (writtenAt(cacheFile()) == 0) return facts;
    standin::dao::Connection cache(cacheFile(), standin::dao::Access::readOnly);
    // A store may have got another index.
    auto rows = cache.prepare(
        L"Select 'row|' || Ifnull(Name, '') || '|' || Ifnull(PhoneNumber, '') || '|' || Ifnull(EntryId, '') || '|' "
        L"|| Ifnull((Select StoreID From TStoreID Where [Index] = c.StoreID), 'none') From TCache As c");
    while (rows.step()) facts.insert(utf8(rows.text(0)));
    return facts;
}

Facts Stage::readSettings(const std::wstring& path) const {
    Facts facts;
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return facts;
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
    for (DWORD i = 0; RegEnumKeyW(key, i, name, 256) == ERROR_SUCCESS; ++i)
        facts.merge(readSettings(path + L"\\" + name));
    RegCloseKey(key);
    return facts;
}

// ---- Outlook and DAO as the driver finds them

void Stage::kill(bool isDao) {
    isDao ? dao.server().quit() : outlook.quit();
    auto& server = isDao ? dao.server() : outlook.server();
    server.faults().failCreation(isDao ? REGDB_E_CLASSNOTREG : CO_E_SERVER_EXEC_FAILURE);
}

void Stage::revive() {
    outlook.server().faults().clear();
    dao.server().faults().clear();
}

}  // namespace prove
