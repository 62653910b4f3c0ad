#include "tests/hostile/World.h"

#include <sqlite3.h>

#include <stdexcept>

#include "tests/com/LateClient.h"

namespace hostile {

namespace {

using namespace standin::outlook;

constexpr int kFriends = 26;
constexpr long kFailOnError = 128;
constexpr int kNumberProperty = 3;

/// Makes a database by these statements.
void makeDatabase(const std::wstring& file, const std::vector<std::wstring>& statements) {
    const auto engine = World::createServer(standin::dao::kEngineProgId);
    const auto database =
        ask(engine, L"CreateDatabase", {file, L";LANGID=0x0409;CP=1252;COUNTRY=0"}).object();
    for (const Variant statement : statements)
        if (FAILED(zelbar::late(*database, L"Execute", {statement.raw(), zelbar::lent(kFailOnError)}).result))
            throw std::runtime_error("a statement fails");
    ask(database, L"Close");
}

std::wstring values(const std::vector<std::wstring>& texts) {
    std::wstring result;
    for (const auto& text : texts) result += (result.empty() ? L"\"" : L", \"") + text + L"\"";
    return L" Values (" + result + L")";
}

}  // namespace

Variant ask(const Com<IDispatch>& object, const wchar_t* member, const std::vector<Variant>& arguments) {
    std::vector<VARIANT> raw;
    for (const Variant& argument : arguments) raw.push_back(argument.raw());
    return zelbar::late(*object, member, std::move(raw)).value;
}

World::World() {
    registry.useProfile(folder);
    registry.set(HKEY_CURRENT_USER, kClientKey, L"DataPath", data);
    makeContactsAndCache();
    makeExported();
    makeDirectory();
}

void World::keepFilesToItself() {
    constexpr sqlite3_int64 kMapped = 1 << 24;
    sqlite3_config(SQLITE_CONFIG_MMAP_SIZE, kMapped, kMapped);
    sqlite3_initialize();
    sqlite3_vfs_register(sqlite3_vfs_find("win32-none"), 1);
}

void World::makeContactsAndCache() {
    Mailbox& box = outlook.mailbox();
    const auto store = box.defaultStore(), archive = box.addStore(L"Archive");
    adaStore = box.storeId(store.id);
    std::vector<std::wstring> cache{
        L"Create Table TStoreID ([Index] Text(50), StoreID Memo)",
        L"Create Table TCache (Name Text(255), PhoneNumber Text(255), EntryId Text(255), StoreID Text(50))",
        L"Create Index ByName On TCache (Name)",
        L"Create Index ByNumber On TCache (PhoneNumber)",
        L"Insert Into TStoreID" + values({L"1", adaStore}),
        L"Insert Into TStoreID" + values({L"2", box.storeId(archive.id)})};
    const auto add = [&](const FolderRecord& place, const wchar_t* index, const Fields& fields) {
        const auto item = box.addContact(place.id, fields);
        cache.push_back(L"Insert Into TCache" +
                        values({item.field(L"LastName"), item.field(L"BusinessTelephoneNumber"),
                                box.entryId(item), index}));
        return item;
    };
    const auto contacts = box.specialFolder(SpecialFolder::Contacts);
    auto ada = add(contacts, L"1",
                   {{L"FirstName", L"Ada"},
                    {L"LastName", L"Byron"},
                    {L"BusinessTelephoneNumber", L"51"},
                    {L"HomeTelephoneNumber", L"52"},
                    {L"CompanyName", L"Analytical"},
                    {L"Email1Address", L"ada@example.org"}});
    box.setPicture(ada, Bytes(40, 'j'));
    box.setUserProperty(ada, L"EmployeeId", kNumberProperty, L"1");
    adaId = box.entryId(ada);
    for (int i = 1; i < kFriends; ++i)
        add(contacts, L"1",
            {{L"LastName", L"Friend " + std::to_wstring(i)},
             {L"BusinessTelephoneNumber", L"6" + std::to_wstring(i)}});
    add(box.addFolder(archive.root, L"People", ItemType::Contact), L"2",
        {{L"LastName", L"Hopper"}, {L"BusinessTelephoneNumber", L"7"}});
    makeDatabase(cacheFile(), cache);
}

/// Of an earlier export: one stays and changes, one has left, one is there twice; and a user's own.
void World::makeExported() {
    Mailbox& box = outlook.mailbox();
    const auto staff = box.addFolder(box.defaultStore().root, L"Staff", ItemType::Contact);
    const std::pair<std::wstring, const wchar_t*> employees[] = {
        {L"1", L"Chess champion"}, {L"2", L""}, {L"1", L""}};
    for (const auto& [id, job] : employees) {
        auto item = box.addContact(staff.id, {{L"LastName", L"Employee " + id},
                                              {L"JobTitle", job},
                                              {L"Categories", *job ? L"Friends; Employees" : L"Employees"}});
        box.setUserProperty(item, L"EmployeeId", kNumberProperty, id);
    }
    box.addContact(staff.id, {{L"LastName", L"A user's own"}});
}

void World::makeDirectory() {
    makeDatabase(
        directoryFile(),
        {L"Create Table Employees (EmployeeId Long Primary Key, Categories Long, AssistantID Long, "
         L"FirstName Text(80), LastName Text(80), Department Text(80), EmailAddress Text(80), "
         L"BusinessPhone Text(80))",
         L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)",
         L"Create Table Default (BusinessPhoneLabel Text(50))", L"Insert Into Default Values (\"Desk\")",
         L"Insert Into Employees Values (1, 2, 9, \"A\", \"Employee 1\", \"New\", \"a@x.org\", \"91\")",
         L"Insert Into Employees Values (3, 2, 9, \"C\", \"Employee 3\", \"\", \"\", \"93\")",
         L"Insert Into BLFPagesContents Values (2, 1, 0)", L"Insert Into BLFPagesContents Values (2, 3, 0)"});
}

long World::rows() const {
    Beside beside(cacheFile());
    auto count = beside.prepare(L"Select Count(*) From TCache");
    return count.step() ? static_cast<long>(count.integer(0)) : 0;
}

long World::contacts(const wchar_t* name) {
    Mailbox& box = outlook.mailbox();
    const auto place = box.findFolder(box.defaultStore().root, name);
    return place ? static_cast<long>(box.items(place->id).size()) : 0;
}

Com<IDispatch> World::createServer(const wchar_t* progId) {
    CLSID id;
    Com<IDispatch> server;
    if (FAILED(CLSIDFromProgID(progId, &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch),
                                reinterpret_cast<void**>(server.put()))))
        throw std::runtime_error("a server cannot be created");
    return server;
}

HRESULT World::makeDriver(HMODULE module, Com<::DataConnector>& driver) {
    Com<IClassFactory> factory;
    const HRESULT result = exported<HRESULT WINAPI(REFCLSID, REFIID, void**)>(module, "DllGetClassObject")(
        CLSID_cDataConnector, __uuidof(IClassFactory), reinterpret_cast<void**>(factory.put()));
    return FAILED(result) ? result
                          : factory->CreateInstance(nullptr, __uuidof(::DataConnector),
                                                    reinterpret_cast<void**>(driver.put()));
}

}  // namespace hostile
