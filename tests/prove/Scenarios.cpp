#include "tests/prove/Scenarios.h"

#include <commctrl.h>

#include "dialogs/Controls.h"
#include "tests/dialogs/Windows.h"
#include "tests/hostile/Workplace.h"
#include "tests/prove/Stage.h"

namespace prove {

namespace {

using enum Scenario::Changes;

constexpr long kOpen = 4097, kClose = 4098, kMail = 4099, kJournal = 4100, kLaunch = 4101, kByName = 1;
constexpr wchar_t kCall[] =
    L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;PHONENUMBER=51;ORIGIN=desk;LOCALNUMBER=12;";

// ---- The driver object

void nothing(Client&) {}

constexpr auto start = &Client::start, open = &Client::open;

void startUp(Client& c) {
    c.release();
    c.start();
    c.noteThat("installed", c.get(c.driver, &::DataConnector::get_PIMInstalled) != 0);
    c.actions = c.get(c.driver, &::DataConnector::get_Actions);
    c.noteThat("actions", c.get(c.actions, &::PIMActions::get_Count) == 5);
}

void startUpAlone(Client& c) {
    c.release();
    c.start();
    c.note("version", c.get(c.driver, &::DataConnector::get_Version).text());
}

void afterWork(Client& c) {
    c.open();
    c.first(L"51");
    c.get(c.contact, &::Contact::get_CategorieId);
    c.actions = c.get(c.driver, &::DataConnector::get_Actions);
}

void shutDown(Client& c) {
    if (!c.driver) afterWork(c);
    c.release();
}

void tell(Client& c) {
    if (!c.driver) c.start();
    c.note("version", c.get(c.driver, &::DataConnector::get_Version).text());
    const Bstr question(L"isFolderConfigured");
    const Variant answer = c.get(c.driver, &::DataConnector::ExecuteCommand, question.get(), VARIANT{});
    c.noteThat("configured", answer.boolean());
    c.call(c.driver, &::DataConnector::ClosePIM);
}

// ---- Searches

void byNumber(Client& c) {
    c.note("51", c.first(L"51"));
    c.note("5*", c.first(L"5*"));
    c.note("unknown", c.first(L"123"));
}

void byName(Client& c) {
    c.note("Byron", c.first(L"Byron", kByName));
    c.note("Hopper", c.first(L"Hopper*", kByName));
    long kind = 0;
    c.contact = c.get(c.cursor, &::ContactRecord::FindFirstForUnified, &kind, Bstr(L"61").get());
    c.note("unified", c.contact);
}

void stale(Client& c) {
    c.note("gone", c.first(L"9"));
    c.note("next", c.next());
}

/// What comes where depends on where the walk stands; but nobody else comes.
void walk(Client& c) {
    c.note("walked", c.first(L"62*"));
    for (int i = 0; i < 6; ++i) c.note("walked", c.next());
    c.note("walked", c.previous());
    c.call(c.cursor, &::ContactRecord::MoveLast);
    c.contact = c.get(c.cursor, &::ContactRecord::get_Contact);
    c.note("walked", c.contact);
    c.note("walked", c.previous());
    c.call(c.cursor, &::ContactRecord::MoveFirst);
    c.note("walked", c.next());
    c.get(c.cursor, &::ContactRecord::get_EOF);
}

/// A list's entries, by name as a script reads them.
void list(Client& c, const char* what, const Com<IDispatch>& values) {
    const auto entries = values.as<::ValueCollection>();
    const long count = c.get(entries, &::ValueCollection::get_Count);
    for (long i = 1; i <= count; ++i) {
        const Variant entry = c.get(entries, &::ValueCollection::Item, Variant(i).raw());
        // The label before it may be the general one.
        if (entry.type() == VT_BSTR)
            c.note(what, entry.text().substr(entry.text().find(L'\t') + 1));
        else if (entry.type() == VT_DISPATCH)
            c.note(what, entry.object().as<::Contact>());
    }
}

void collect(Client& c) {
    long kind = 0;
    list(c, "collected", c.get(c.cursor, &::ContactRecord::FillContactCollection, &kind, Bstr(L"6*").get()));
}

void haveAda(Client& c) {
    c.open();
    c.first(L"51");
}

void readContact(Client& c) {
    using Read = HRESULT (STDMETHODCALLTYPE ::Contact::*)(BSTR*);
    const std::pair<const char*, Read> members[] = {
        {"CategorieId", &::Contact::get_CategorieId},
        {"AssistantId", &::Contact::get_AssistantId},
        {"employeeId", &::Contact::get_employeeId},
        {"Department", &::Contact::get_Department},
        {"BusinessPhone", &::Contact::get_BusinessPhone},
        {"MobilePhone", &::Contact::get_MobilePhone},
        {"HomePhone", &::Contact::get_HomePhone},
        {"AssistantPhoneLabel", &::Contact::get_AssistantPhoneLabel},
        {"MainEmail", &::Contact::get_MainEmail},
        {"ContactId", &::Contact::get_ContactId},
        {"StoreId", &::Contact::get_StoreId},
        {"MainPhoneNumber", &::Contact::get_MainPhoneNumber},
        {"MainHomeNumber", &::Contact::get_MainHomeNumber},
        {"CompanyName", &::Contact::get_CompanyName},
        {"PhotoURL", &::Contact::get_PhotoURL},
        {"LastName", &::Contact::get_LastName},
        {"FirstName", &::Contact::get_FirstName},
        {"FullName", &::Contact::get_FullName},
    };
    c.first(L"51");
    for (const auto& [name, member] : members) c.note(name, c.get(c.contact, member).text());
    list(c, "email", c.get(c.contact, &::Contact::get_Emails));
    list(c, "number", c.get(c.contact, &::Contact::get_PhoneNumbers));
    c.noteThat("equal", c.get(c.contact, &::Contact::IsEqual, c.contact.get()) != 0);
    c.call(c.contact, &::Contact::Show);
}

// ---- Outlook's contacts and folders

void byIdentity(Client& c) {
    if (!c.driver) c.start();
    const Bstr ada(Stage::current().adaId);
    c.note("contact", c.get(c.driver, &::DataConnector::GetContactByContactID, ada.get()));
    const auto item = c.get(c.driver, &::DataConnector::GetContactItemByContactItemID, ada.get());
    c.noteThat("item", static_cast<bool>(item));
}

void create(Client& c) {
    const Bstr name(L"New One"), number(L"+44");
    c.call(c.driver, &::DataConnector::CreateContact, name.get(), number.get(), VARIANT_TRUE);
    c.contact = c.get(c.driver, &::DataConnector::GetActiveContact);
    c.note("active", c.contact);
}

void showFolders(Client& c) {
    for (const wchar_t* name : {L"contacts", L"journal"})
        c.get(c.driver, &::DataConnector::ShowFolder, Bstr(name).get());
}

// ---- Actions

template <long kId, bool kKnown, bool kOther = false>
void act(Client& c) {
    const auto caller = c.makeCaller(kKnown ? L"51" : L"123", kCall);
    if (kId == kMail)
        c.perform(kId, caller, {{L"DestinationAddress", L"desk@example.com"}, {L"AutomaticSend", !kOther}});
    else if (kId == kLaunch)
        c.perform(kId, caller,
                  {{L"Path", L"C:\\windows\\system32"}, {L"Arguments", kOther ? L"none.exe" : L"cmd.exe x"}});
    else
        c.perform(kId, caller, {}, kKnown ? 0 : 2);
}

void readActions(Client& c) {
    if (!c.driver) c.start();
    const auto all = c.get(c.driver, &::DataConnector::get_Actions);
    for (const long id : {kOpen, kClose, kMail, kJournal, kLaunch}) {
        const auto action = c.get(all, &::PIMActions::NewAction, id).as<::CallAction>();
        c.note("action", c.get(action, &::CallAction::get_ActionName).text());
        c.get(action, &::CallAction::CopyAction);
        const auto settings = c.get(action, &::CallAction::get_ActionProp);
        const long count = c.get(settings, &::ActionProperties::get_Count);
        for (long i = 1; i <= count; ++i) {
            const auto setting = c.get(settings, &::ActionProperties::Item, Variant(i).raw());
            c.note("setting", c.get(setting, &::ActionProperty::get_PropertyName).text());
            c.get(setting, &::ActionProperty::get_Values);
        }
    }
}

// ---- Windows

HWND selection() {
    const auto dialogs = zelbar::openDialogs();
    return dialogs.empty() ? nullptr : dialogs.back();
}

bool openSelection(Client& c) {
    c.call(c.driver, &::DataConnector::ConfigPIM);
    for (int i = 0; i < 20 && selection() && !IsWindowEnabled(GetDlgItem(selection(), IDOK)); ++i) {
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        zelbar::serveMessages();
    }
    return selection() && IsWindowEnabled(GetDlgItem(selection(), IDOK));
}

void chooseFolders(Client& c) {
    c.noteThat("folders", openSelection(c));
    hostile::closeDialogs();
}

void saveFolders(Client& c) {
    // A user who is told that the list is not complete does not save it.
    if (openSelection(c) && !IsWindowVisible(GetDlgItem(selection(), kControl_PSTLabel))) {
        const HWND folders = GetDlgItem(selection(), kControl_listFolder);
        for (int i = 0; i < ListView_GetItemCount(folders); ++i) ListView_SetCheckState(folders, i, TRUE);
        SendMessageW(selection(), WM_COMMAND, IDOK, 0);
    }
    hostile::closeDialogs();
}

void makeFolder(Client& c) {
    if (openSelection(c))
        zelbar::pressForModal(GetDlgItem(selection(), kControl_CmdSelect), [](HWND dialog) {
            const HWND tree = GetDlgItem(dialog, kControl_treeFolder);
            wchar_t name[40] = {};
            TVITEMW root{TVIF_TEXT, TreeView_GetRoot(tree), 0, 0, name, 40, 0, 0, 0, 0};
            TreeView_GetItem(tree, &root);
            SetDlgItemTextW(dialog, kControl_Name, L"Made");
            if (std::wstring(name) == L"Personal Folders")
                SendDlgItemMessageW(dialog, kControl_CmdCreate, BM_CLICK, 0, 0);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
    hostile::closeDialogs();
}

// ---- The export, and the cache

void beginExport(Client& c) {
    const Bstr path(Stage::current().directoryFile()), name(L"Phone list");
    c.noteThat("exported", c.get(c.driver, &::DataConnector::InitializeExportFolder, path.get(), name.get(),
                                 VARIANT{}) != 0);
}

void synchronize(Client& c) {
    const Variant path(Stage::current().directoryFile()), name(L"Staff");
    c.noteThat("exported", c.get(c.driver, &::DataConnector::SynchronizeExportFolder, path.raw(), name.raw(),
                                 VARIANT{}) != 0);
}

void haveTables(Client&) {
    Stage::current().outlook.server().setOption(L"Version", L"16.0");
}

void startWithTables(Client& c) {
    haveTables(c);
    c.start();
}

void fillCache(Client& c) {
    const HMODULE filler = GetModuleHandleW(L"prove_fill.dll");
    c.noteThat("filled", hostile::exported<bool __cdecl()>(filler, "fill")());
}

void loseCache(Client&) {
    DeleteFileW(Stage::current().cacheFile().c_str());
}

}  // namespace

const std::vector<Scenario> kScenarios = {
    {"start-up", nothing, startUp, Nothing, {.anew = true}},
    {"start-up-logged", nothing, startUp, Nothing, {.anew = true, .log = L"2"}},
    {"start-up-shown", nothing, startUpAlone, Nothing, {.anew = true, .log = L"1", .isSlow = true}},
    {"shut-down", afterWork, shutDown, Nothing, {.anew = true}},
    {"about", start, tell},
    {"search-by-number", open, byNumber},
    {"search-by-name", open, byName},
    {"search-logged", open, byNumber, Nothing, {.log = L"2"}},
    {"stale-row", open, stale, Settles},
    {"walk", open, walk},
    {"collection", open, collect},
    {"contact",
     haveAda,
     readContact,
     Settles,
     {.also = {"MainPhoneNumber=52", "MainEmail=a@x.org", "email=a@x.org"}}},
    {"identity", start, byIdentity},
    {"create", start, create, Adds},
    {"show-folder", start, showFolders},
    {"actions", start, readActions},
    {"open-known", start, act<kOpen, true>},
    {"open-unknown", start, act<kOpen, false>, Adds},
    {"close", act<kOpen, true>, act<kClose, true>},
    {"mail-sent", start, act<kMail, true>, Adds},
    {"mail-shown", start, act<kMail, true, true>, Adds},
    {"journal", start, act<kJournal, true>, Adds},
    {"launch", start, act<kLaunch, true>},
    {"launch-fails", start, act<kLaunch, true, true>},
    {"folders", start, chooseFolders, Nothing, {.isSlow = true}},
    {"folders-saved", start, saveFolders, Whole, {.isSlow = true}},
    {"folder-made", start, makeFolder, Settles, {.isSlow = true}},
    {"export-begun", start, beginExport, Adds},
    {"export", start, synchronize, Settles},
    {"export-table", startWithTables, synchronize, Settles},
    {"fill", nothing, fillCache, Settles, {.hasClient = false}},
    {"fill-table", haveTables, fillCache, Settles, {.hasClient = false}},
    {"fill-new", loseCache, fillCache, Settles, {.hasClient = false}},
};

}  // namespace prove
