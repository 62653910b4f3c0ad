#include "tests/prove/Stage.h"

#include <fstream>
#include <sstream>

#include "automation/DaoNames.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "standin/common/FaultScript.h"
#include "support/Encoding.h"
#include "tests/harness/Process.h"
#include "tests/prove/Imports.h"

namespace prove {

namespace {

using namespace standin::outlook;
using zelbar::Gateway;
using zelbar::Object;
namespace dao_ = zelbar::dao;

constexpr wchar_t kPopup[] = L"Software\\Norvane\\7316\\Popup";
constexpr wchar_t kSelection[] = L"Software\\Norvane\\7316\\Popup\\zelbar00folder";
constexpr int kFriends = 26;

Stage* onStage = nullptr;

/// Another number whenever the file was written to.
ULONGLONG writtenAt(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    return (ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32) + data.ftLastWriteTime.dwLowDateTime;
}

std::string bytesOf(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::wstring& path, const std::string& bytes) {
    std::ofstream(std::filesystem::path(path), std::ios::binary) << bytes;
}

std::string text(const std::wstring& wide) {
    return zelbar::utf8(wide);
}

Object database(const std::wstring& path, bool isNew) {
    const Object engine = Gateway().create(zelbar::Server::Dao, dao_::kEngineProgIds[0], dao_::kEngine);
    return isNew ? engine.object(dao_::CreateDatabase, path, L";LANGID=0x0409;CP=1252;COUNTRY=0")
                 : engine.object(dao_::OpenDatabase, path);
}

void execute(const Object& database, std::initializer_list<std::wstring> statements) {
    for (const std::wstring& statement : statements) database.call(dao_::Execute, statement, 128);
}

}  // namespace

harness::TemporaryFolder& Stage::folder() {
    static harness::TemporaryFolder instance;
    return instance;
}

Stage& Stage::current() {
    return *onStage;
}

Stage::Stage() : outlook(folder().file(L"mailbox.db")) {
    onStage = this;
    registry_.useProfile(folder());
    fillMailbox();
    outlook.mailbox().database().run("BEGIN");
    makeDatabases();
    reset();
}

Stage::~Stage() {
    onStage = nullptr;
}

std::wstring Stage::module(const wchar_t* name) {
    const std::wstring copy = folder().file(name);
    CopyFileW((harness::programFolder() + L"\\" + name).c_str(), copy.c_str(), FALSE);
    return copy;
}

void Stage::set(const wchar_t* key, const wchar_t* name, const std::wstring& value) {
    settingsVersion_ = -1;
    registry_.set(HKEY_CURRENT_USER, key, name, value);
}

// ---- What is there

void Stage::fillMailbox() {
    Mailbox& box = outlook.mailbox();
    const auto folder = box.specialFolder(SpecialFolder::Contacts).id;
    auto ada = box.addContact(folder, {{L"FirstName", L"Ada"},
                                       {L"LastName", L"Byron"},
                                       {L"BusinessTelephoneNumber", L"51"},
                                       {L"HomeTelephoneNumber", L"52"},
                                       {L"CompanyName", L"Analytical"},
                                       {L"Email1Address", L"ada@example.org"}});
    box.setPicture(ada, Bytes(40, 'j'));
    box.setUserProperty(ada, L"EmployeeId", 3, L"1");
    for (int i = 1; i < kFriends; ++i)
        box.addContact(folder, {{L"LastName", L"Friend " + std::to_wstring(i)},
                                {L"BusinessTelephoneNumber", L"6" + std::to_wstring(i)}});
    const auto archive = box.addStore(L"Archive");
    const auto people = box.addFolder(archive.root, L"People", standin::outlook::ItemType::Contact);
    box.addContact(people.id, {{L"LastName", L"Hopper"}, {L"BusinessTelephoneNumber", L"7"}});
    const auto staff = box.addFolder(box.defaultStore().root, L"Staff", standin::outlook::ItemType::Contact);
    // Of an earlier export: one stays and changes, one has left, one is there twice; and a user's own.
    const std::pair<std::wstring, const wchar_t*> employees[] = {
        {L"1", L"Chess champion"}, {L"2", L""}, {L"1", L""}};
    for (const auto& [id, job] : employees) {
        auto item = box.addContact(staff.id, {{L"LastName", L"Employee " + id},
                                              {L"JobTitle", job},
                                              {L"Categories", *job ? L"Friends; Employees" : L"Employees"}});
        box.setUserProperty(item, L"EmployeeId", 3, id);
    }
    box.addContact(staff.id, {{L"LastName", L"A user's own"}});
    const auto gone = box.addContact(folder, {{L"LastName", L"Gone"}});
    goneId_ = box.entryId(gone);
    box.eraseItem(gone.id);
    adaId = box.entryId(ada);
    adaStore = box.storeId(box.defaultStore().id);
}

void Stage::makeDatabases() {
    Mailbox& box = outlook.mailbox();
    databases_ = {{file(L"connec00.mdb"), {}}, {file(L"wxd.mdb"), {}}};
    {
        const Object cache = database(databases_[0].path, true);
        execute(cache,
                {L"Create Table TStoreID ([Index] Text(50), StoreID Memo)",
                 L"Create Table TCache (Name Text(255), PhoneNumber Text(255), EntryId Text(255), "
                 L"StoreID Text(50))",
                 L"Create Index ByName On TCache (Name)", L"Create Index ByNumber On TCache (PhoneNumber)"});
        int key = 0;
        for (const auto& store : box.stores()) {
            const std::wstring index = std::to_wstring(++key);
            execute(cache, {L"Insert Into TStoreID Values (\"" + index + L"\", \"" + box.storeId(store.id) +
                            L"\")"});
            for (const auto& place : box.subfolders(store.root))
                for (const auto id : box.items(place.id)) {
                    const auto item = *box.item(id);
                    if (place.name == L"Staff") continue;
                    execute(cache, {L"Insert Into TCache Values (\"" + item.field(L"LastName") + L"\", \"" +
                                    item.field(L"BusinessTelephoneNumber") + L"\", \"" + box.entryId(item) +
                                    L"\", \"" + index + L"\")"});
                }
        }
        execute(cache, {L"Insert Into TCache Values (\"Gone\", \"9\", \"" + goneId_ + L"\", \"1\")"});
        cache.call(dao_::Close);
    }
    const Object directory = database(databases_[1].path, true);
    execute(
        directory,
        {L"Create Table Employees (EmployeeId Long Primary Key, Categories Long, AssistantID Long, "
         L"FirstName Text(80), LastName Text(80), Department Text(80), EmailAddress Text(80), "
         L"BusinessPhone Text(80))",
         L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)",
         L"Create Table Default (BusinessPhoneLabel Text(50))", L"Insert Into Default Values (\"Desk\")",
         L"Insert Into Employees Values (1, 2, 9, \"A\", \"Employee 1\", \"New\", \"a@x.org\", \"91\")",
         L"Insert Into Employees Values (3, 2, 9, \"C\", \"Employee 3\", \"\", \"\", \"93\")",
         L"Insert Into BLFPagesContents Values (2, 1, 0)", L"Insert Into BLFPagesContents Values (2, 3, 0)"});
    directory.call(dao_::Close);
}

void Stage::makeSettings() {
    Mailbox& box = outlook.mailbox();
    const auto contacts = box.specialFolder(SpecialFolder::Contacts);
    const auto staff = *box.findFolder(box.defaultStore().root, L"Staff");
    set(L"Software\\Norvane\\7316\\VEXPhone", L"DataPath", data_);
    set(kPopup, L"NoEmailAddressAccess", L"0");
    for (const wchar_t* name : {L"OutlookTimeout", L"OutlookTimeoutUser"}) set(kPopup, name, L"0");
    set(kSelection, L"entryId1", box.entryId(contacts));
    set(kSelection, L"storeId1", adaStore);
    set(kSelection, L"selectId1", L"-1");
    const wchar_t* kExport = L"Software\\Norvane\\7316\\Popup\\outlook98\\TransfertFolder";
    set(kExport, L"EntryId", box.entryId(staff));
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
        if (each.bytes.empty()) each.bytes = bytesOf(each.path);
        if (writtenAt(each.path) == each.written) continue;
        write(each.path, each.bytes);
        each.written = writtenAt(each.path);
    }
    if (rows_.empty()) addRows(rows_);
    if (registryWrites() != settingsVersion_) {
        RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Norvane");
        makeSettings();
        settings_.clear();
        addSettings(settings_, HKEY_CURRENT_USER, L"Software\\Norvane");
        settingsVersion_ = registryWrites();
    }
    Facts files;
    addFiles(files, data_);
    for (const std::string& each : files)
        if (const std::string name = each.substr(5, each.find('|', 5) - 5); !name.ends_with(".mdb"))
            DeleteFileA((text(data_) + "\\" + name).c_str());
}

// ---- Facts

Facts Stage::facts() {
    Facts result;
    if (outlook.mailbox().version() == mailboxVersion_)
        result = mailboxFacts_;
    else
        addMailbox(result);
    if (writtenAt(databases_[0].path) == databases_[0].written)
        result.insert(rows_.begin(), rows_.end());
    else
        addRows(result);
    if (registryWrites() == settingsVersion_)
        result.insert(settings_.begin(), settings_.end());
    else
        addSettings(result, HKEY_CURRENT_USER, L"Software\\Norvane");
    addFiles(result, data_);
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
        "SELECT 'folder|' || store || '|' || name FROM folders WHERE parent IS NOT NULL",
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
        for (Query rows(outlook.mailbox().database(), sql); rows.next();) facts.insert(text(rows.text(0)));
}

void Stage::addRows(Facts& facts) {
    if (writtenAt(databases_[0].path) == 0) return;
    const Object cache = database(databases_[0].path, false);
    const Object rows = cache.object(dao_::OpenRecordset, L"Select * From TCache");
    for (; !rows.boolean(dao_::EOF_); rows.call(dao_::MoveNext)) {
        std::string line = "row";
        for (const wchar_t* column : {L"Name", L"PhoneNumber", L"EntryId", L"StoreID"})
            line += "|" + text(rows.object(dao_::FieldNamed, column).text(dao_::Value));
        facts.insert(line);
    }
    rows.call(dao_::Close);
    cache.call(dao_::Close);
}

void Stage::addSettings(Facts& facts, HKEY root, const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
    wchar_t name[256];
    BYTE bytes[4096];
    for (DWORD i = 0;; ++i) {
        DWORD length = 256, size = sizeof(bytes);
        if (RegEnumValueW(key, i, name, &length, nullptr, nullptr, bytes, &size) != ERROR_SUCCESS) break;
        const std::string line =
            text(name) + "|" + text({reinterpret_cast<wchar_t*>(bytes), size / sizeof(wchar_t)});
        // A run's own, and the flag of a filler, which the next one takes back.
        if (line.starts_with("OutlookTimeout") || line.starts_with("Synchro")) continue;
        facts.insert("setting|" + text(path) + "|" + line);
    }
    for (DWORD i = 0;; ++i) {
        DWORD length = 256;
        if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
        addSettings(facts, root, path + L"\\" + name);
    }
    RegCloseKey(key);
}

void Stage::addFiles(Facts& facts, const std::wstring& place) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((place + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        // The databases' content counts, not their size; a lock file shows that one is open.
        const std::string name = text(found.cFileName);
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY || name.ends_with(".ldb")) continue;
        facts.insert("file|" + name + "|" +
                     (name.ends_with(".mdb") ? "" : std::to_string(found.nFileSizeLow)));
    } while (FindNextFileW(search, &found));
    FindClose(search);
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
