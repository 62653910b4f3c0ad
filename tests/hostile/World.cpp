#include "tests/hostile/World.h"

#include <stdexcept>

#include "automation/Bstr.h"
#include "tests/com/LateClient.h"
#include "tests/harness/Files.h"

namespace hostile {

namespace {

using standin::outlook::SpecialFolder;
using zelbar::Bstr;
using zelbar::late;
using zelbar::lent;

constexpr long kFailOnError = 128;

/// As a user answers who has other things to do.
void CALLBACK answerDialogs(HWND, UINT, UINT_PTR, DWORD) noexcept {
    EnumThreadWindows(
        GetCurrentThreadId(), [](HWND window, LPARAM) __stdcall->BOOL {
            static unsigned answered = 0;
            wchar_t name[16] = {};
            GetClassNameW(window, name, 16);
            if (IsWindowVisible(window) && std::wstring(name) == L"#32770")
                PostMessageW(window, WM_COMMAND, ++answered % 3 ? IDOK : IDCANCEL, 0);
            return TRUE;
        },
        0);
}

Com<IDispatch> openDatabase(const std::wstring& file) {
    const auto engine = World::createServer(standin::dao::kEngineProgId);
    const Bstr path(file), locale(L";LANGID=0x0409;CP=1252;COUNTRY=0");
    const auto opened = harness::exists(file)
                            ? late(*engine.get(), L"OpenDatabase", {lent(path.get())})
                            : late(*engine.get(), L"CreateDatabase", {lent(path.get()), lent(locale.get())});
    if (FAILED(opened.result)) throw std::runtime_error("no database");
    return opened.value.object();
}

}  // namespace

World::World() : timer_(SetTimer(nullptr, 0, 10, answerDialogs)) {
    registry.useProfile(folder);
    registry.set(HKEY_CURRENT_USER, kClientKey, L"DataPath", folder.path());
    const std::wstring store = outlook.mailbox().storeId(outlook.mailbox().defaultStore().id);
    sql(cacheFile(), {L"Create Table TStoreID ([Index] Text(50), StoreID Memo)",
                      L"Create Table TCache (Name Text(255), PhoneNumber Text(255), EntryId Text(255), "
                      L"StoreID Text(50))",
                      L"Insert Into TStoreID Values (\"1\", \"" + store + L"\")",
                      addContact(L"Ada", L"Byron", L"+44 20 1"), addContact(L"Ben", L"Byron", L"+44 20 2")});
    sql(directoryFile(),
        {L"Create Table Employees (EmployeeId Long Primary Key, Categories Long, FirstName Text(50), "
         L"LastName Text(50), BusinessPhone Text(50))",
         L"Create Table BLFPagesContents (BLFpageId Long, EmployeeId Long, BindToEmployee YesNo)",
         L"Insert Into Employees Values (1, 2, \"Eve\", \"Moore\", \"501\")",
         L"Insert Into BLFPagesContents Values (2, 1, True)"});
}

World::~World() {
    serveMessages();
    KillTimer(nullptr, timer_);
}

void World::sql(const std::wstring& file, const std::vector<std::wstring>& statements) {
    const auto database = openDatabase(file);
    for (const auto& statement : statements)
        if (FAILED(
                late(*database.get(), L"Execute", {lent(Bstr(statement).get()), lent(kFailOnError)}).result))
            throw std::runtime_error("a statement fails");
    late(*database.get(), L"Close");
}

std::wstring World::addContact(const std::wstring& first, const std::wstring& last,
                               const std::wstring& number) {
    auto& mailbox = outlook.mailbox();
    const auto item = mailbox.addContact(
        mailbox.specialFolder(SpecialFolder::Contacts).id,
        {{L"FirstName", first}, {L"LastName", last}, {L"BusinessTelephoneNumber", number}});
    return L"Insert Into TCache Values (\"" + last + L" " + first + L"\", \"" + number + L"\", \"" +
           mailbox.entryId(item) + L"\", \"1\")";
}

long World::rows(const std::wstring& file) {
    const auto database = openDatabase(file);
    const auto table = late(*database.get(), L"OpenRecordset", {lent(Bstr(L"TCache").get())}).value.object();
    return late(*table.get(), L"RecordCount").value.integer();
}

long World::contacts() {
    auto& mailbox = outlook.mailbox();
    return static_cast<long>(mailbox.items(mailbox.specialFolder(SpecialFolder::Contacts).id).size());
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

Com<::DataConnector> World::createDriver() {
    return createServer(L"zelbar00.cDataConnector").as<::DataConnector>();
}

std::vector<Com<IUnknown>> World::objectsOf(const Com<::DataConnector>& driver) {
    const auto made = [](IDispatch& from, const wchar_t* name, std::vector<VARIANT> arguments = {}) {
        const auto object = late(from, name, std::move(arguments)).value.object();
        if (!object) throw std::runtime_error("an object is missing");
        return object;
    };
    const auto cursor = made(*driver.get(), L"OpenContactRecord");
    const auto contact = made(*cursor.get(), L"FindFirst", {lent(1L), lent(Bstr(L"Byron*").get())});
    const auto actions = made(*driver.get(), L"Actions");
    std::vector<Com<IUnknown>> result{driver,
                                      cursor,
                                      contact,
                                      actions,
                                      made(*contact.get(), L"PhoneNumbers"),
                                      made(*made(*driver.get(), L"OpenContactRecord").get(), L"FindFirst",
                                           {lent(0L), lent(Bstr(L"777").get())})};
    for (long id = 4097; id <= 4101; ++id) {
        const auto action = made(*actions.get(), L"Item", {lent(id)});
        const auto settings = made(*action.get(), L"ActionProp");
        const long count = late(*settings.get(), L"Count").value.integer();
        for (long i = 1; i <= count; ++i) result.push_back(made(*settings.get(), L"Item", {lent(i)}));
        result.insert(result.end(), {action, settings});
    }
    return result;
}

bool World::canUnload() {
    using Function = HRESULT WINAPI();
    const HMODULE module = GetModuleHandleW(L"zelbar00.dll");
    const auto ask =
        reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
    // Windows that are still open are on their way out.
    for (int i = 0; i < 100; ++i, Sleep(10)) {
        serveMessages();
        if (ask() == S_OK) return true;
    }
    return false;
}

bool World::day(Proof& proof) {
    bool known = false;
    {
        const auto driver = createDriver();
        const auto cursor = late(*driver.get(), L"OpenContactRecord").value.object();
        const auto find = [&](long kind, const wchar_t* text) {
            return late(*cursor.get(), L"FindFirst", {lent(kind), lent(Bstr(text).get())}).value.object();
        };
        late(*driver.get(), L"ExecuteCommand", {lent(Bstr(L"isFolderConfigured").get())});
        // What nobody has is thrown about inside.
        late(*driver.get(), L"GetContactItemByContactItemID", {lent(Bstr(L"none").get())});
        late(*driver.get(), L"ConfigPIM");
        if (find(1, L"Byron*"))
            for (const wchar_t* step :
                 {L"FindNext", L"FindNext", L"FindPrevious", L"MoveLast", L"MoveFirst", L"Contact"})
                late(*cursor.get(), step);
        late(*cursor.get(), L"FillContactCollection", {lent(0L), lent(Bstr(L"+44*").get())});
        if (const auto ada = find(0, L"+44 20 1")) {
            known = !late(*ada.get(), L"NotInPIM").value.boolean();
            for (const wchar_t* member :
                 {L"FullName", L"PhoneNumbers", L"Emails", L"PhotoURL", L"Department"})
                late(*ada.get(), member);
            const auto actions = late(*driver.get(), L"Actions").value.object();
            const auto journal = late(*actions.get(), L"Item", {lent(4100L)}).value.object();
            late(*journal.get(), L"ExecuteAction", {lent(ada.get())});
        }
        late(*driver.get(), L"SynchronizeExportFolder",
             {lent(Bstr(directoryFile()).get()), lent(Bstr(L"Staff").get())});
    }
    proof.expect(canUnload(), &Tally::leaks, "the driver has objects left");
    proof.expectNoMore(0, outlook.server().liveObjects(), &Tally::leaks, "objects of Outlook");
    proof.expectNoMore(0, dao.server().liveObjects(), &Tally::leaks, "objects of DAO");
    return known;
}

void serveMessages() {
    MSG message;
    for (int i = 0; i < 1000 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i)
        DispatchMessageW(&message);
}

}  // namespace hostile
