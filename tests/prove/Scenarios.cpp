#include "tests/prove/Scenarios.h"

#include <commctrl.h>

#include "dialogs/Controls.h"
#include "tests/dialogs/Windows.h"
#include "tests/prove/Stage.h"

namespace prove {

namespace {

using zelbar::Bstr;
using zelbar::Com;
using zelbar::Variant;
using enum Scenario::Changes;

constexpr long kOpen = 4097, kClose = 4098, kMail = 4099, kJournal = 4100, kLaunch = 4101, kByName = 1;
constexpr wchar_t kCall[] =
    L"TYPE=incoming;START=2003-02-01 10:00:00;DURATION=1;PHONENUMBER=51;ORIGIN=desk;LOCALNUMBER=12;";

// ---- The driver object

void startUp(Client& c) {
    c.release();
    c.start();
    c.note("installed", c.flag(c.driver.get(), &::DataConnector::get_PIMInstalled));
    c.actions = c.get(c.driver.get(), &::DataConnector::get_Actions);
    long count = 0;
    if (c.actions) c.check(c.actions->get_Count(&count));
    c.note("actions", count == 5 ? L"all" : L"");
}

void afterWork(Client& c) {
    c.open();
    c.first(L"51");
    c.text(c.contact.get(), &::Contact::get_CategorieId);
    c.actions = c.get(c.driver.get(), &::DataConnector::get_Actions);
}

void shutDown(Client& c) {
    if (!c.driver) afterWork(c);
    c.release();
}

void tell(Client& c) {
    if (!c.driver) c.start();
    c.note("version", c.text(c.driver.get(), &::DataConnector::get_Version));
    Variant answer;
    if (c.driver)
        c.check(c.driver.get()->ExecuteCommand(Bstr(L"isFolderConfigured").get(), {}, answer.put()));
    c.note("configured", answer.boolean() ? L"yes" : L"");
    if (c.driver) c.check(c.driver.get()->ClosePIM());
}

void start(Client& c) {
    c.start();
}

void open(Client& c) {
    c.open();
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
    c.note("unified", c.unified(L"61"));
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
    if (c.cursor) c.check(c.cursor.get()->MoveLast());
    c.contact = c.get(c.cursor.get(), &::ContactRecord::get_Contact);
    c.note("walked", c.contact.get());
    c.note("walked", c.previous());
    if (c.cursor) c.check(c.cursor.get()->MoveFirst());
    c.note("walked", c.next());
    c.flag(c.cursor.get(), &::ContactRecord::get_EOF);
}

/// A list's entries, by name as a script reads them.
void list(Client& c, const char* what, const Com<IDispatch>& values) {
    const auto entries = values ? values.as<::ValueCollection>() : Com<::ValueCollection>();
    long count = 0;
    if (entries) c.check(entries->get_Count(&count));
    for (long i = 1; i <= count; ++i) {
        Variant entry;
        c.check(entries->Item(Variant(i).raw(), entry.put()));
        // The label before it may be the general one.
        if (entry.type() == VT_BSTR)
            c.note(what, entry.text().substr(entry.text().find(L'\t') + 1));
        else if (entry.type() == VT_DISPATCH)
            c.note(what, entry.object().as<::Contact>().get());
    }
}

void collect(Client& c) {
    long kind = 0;
    Com<IDispatch> found;
    if (c.cursor) c.check(c.cursor.get()->FillContactCollection(&kind, Bstr(L"6*").get(), found.put()));
    list(c, "collected", found);
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
    for (const auto& [name, member] : members) c.note(name, c.text(c.contact.get(), member));
    list(c, "email", c.get(c.contact.get(), &::Contact::get_Emails));
    list(c, "number", c.get(c.contact.get(), &::Contact::get_PhoneNumbers));
    VARIANT_BOOL equal = VARIANT_FALSE;
    if (c.contact) c.check(c.contact.get()->IsEqual(c.contact.get(), &equal));
    c.note("equal", equal ? L"yes" : L"");
    if (c.contact) c.check(c.contact.get()->Show());
}

void searchAndRead(Client& c) {
    c.first(L"51");
    readContact(c);
}

// ---- Outlook's contacts and folders

void byIdentity(Client& c) {
    if (!c.driver) c.start();
    Com<::Contact> found;
    if (c.driver)
        c.check(c.driver.get()->GetContactByContactID(Bstr(Stage::current().adaId).get(), found.put()));
    c.note("contact", found.get());
    Com<IDispatch> item;
    if (c.driver)
        c.check(
            c.driver.get()->GetContactItemByContactItemID(Bstr(Stage::current().adaId).get(), item.put()));
    c.note("item", item ? L"yes" : L"");
}

void create(Client& c) {
    if (c.driver)
        c.check(c.driver.get()->CreateContact(Bstr(L"New One").get(), Bstr(L"+44").get(), VARIANT_TRUE));
    c.contact = c.get(c.driver.get(), &::DataConnector::GetActiveContact);
    c.note("active", c.contact.get());
}

void showFolders(Client& c) {
    for (const wchar_t* name : {L"contacts", L"journal"}) {
        VARIANT_BOOL isNew = VARIANT_FALSE;
        if (c.driver) c.check(c.driver.get()->ShowFolder(Bstr(name).get(), &isNew));
    }
}

// ---- Actions

template <long kId, bool kKnown, bool kOther = false>
void act(Client& c) {
    const auto caller = c.makeCaller(kKnown ? L"51" : L"123", kCall);
    if (kId == kMail)
        c.perform(kId, caller.get(),
                  {{L"DestinationAddress", L"desk@example.com"}, {L"AutomaticSend", !kOther}});
    else if (kId == kLaunch)
        c.perform(kId, caller.get(),
                  {{L"Path", L"C:\\windows\\system32"}, {L"Arguments", kOther ? L"none.exe" : L"cmd.exe x"}});
    else
        c.perform(kId, caller.get(), {}, kKnown ? 0 : 2);
}

void readActions(Client& c) {
    if (!c.driver) c.start();
    const auto all = c.get(c.driver.get(), &::DataConnector::get_Actions);
    for (const long id : {kOpen, kClose, kMail, kJournal, kLaunch}) {
        Com<IDispatch> made, copy;
        if (all) c.check(all->NewAction(id, made.put()));
        const auto own = made ? made.as<::CallAction>() : Com<::CallAction>();
        c.note("action", c.text(own.get(), &::CallAction::get_ActionName));
        if (own) c.check(own->CopyAction(copy.put()));
        const auto list = c.get(own.get(), &::CallAction::get_ActionProp);
        long count = 0;
        if (list) c.check(list->get_Count(&count));
        for (long i = 1; i <= count; ++i) {
            Com<::ActionProperty> one;
            c.check(list->Item(Variant(i).raw(), one.put()));
            c.note("setting", c.text(one.get(), &::ActionProperty::get_PropertyName));
            Variant values;
            if (one) c.check(one->get_Values(values.put()));
        }
    }
}

// ---- Windows

HWND selection() {
    const auto open = zelbar::openDialogs();
    return open.empty() ? nullptr : open.back();
}

bool openSelection(Client& c) {
    if (c.driver) c.check(c.driver.get()->ConfigPIM());
    for (int i = 0; i < 20 && selection() && !IsWindowEnabled(GetDlgItem(selection(), IDOK)); ++i) {
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        zelbar::serveMessages();
    }
    return selection() && IsWindowEnabled(GetDlgItem(selection(), IDOK));
}

void closeAll() {
    for (const HWND each : zelbar::openDialogs()) SendMessageW(each, WM_CLOSE, 0, 0);
    zelbar::serveMessages();
}

void chooseFolders(Client& c) {
    c.note("folders", openSelection(c) ? L"usable" : L"");
    closeAll();
}

void saveFolders(Client& c) {
    // A user who is told that the list is not complete does not save it.
    if (openSelection(c) && !IsWindowVisible(GetDlgItem(selection(), kControl_PSTLabel))) {
        const HWND list = GetDlgItem(selection(), kControl_listFolder);
        for (int i = 0; i < ListView_GetItemCount(list); ++i) ListView_SetCheckState(list, i, TRUE);
        SendMessageW(selection(), WM_COMMAND, IDOK, 0);
    }
    closeAll();
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
    closeAll();
}

// ---- The export

template <auto Member>
void runExport(Client& c, const wchar_t* folder) {
    VARIANT_BOOL done = VARIANT_FALSE;
    const Bstr path(Stage::current().file(L"wxd.mdb")), name(folder);
    if constexpr (std::is_same_v<decltype(Member), decltype(&::DataConnector::InitializeExportFolder)>) {
        if (c.driver) c.check((c.driver.get()->*Member)(path.get(), name.get(), {}, &done));
    } else if (c.driver) {
        c.check((c.driver.get()->*Member)(Variant(path.text()).raw(), Variant(name.text()).raw(), {}, &done));
    }
    c.note("exported", done ? L"yes" : L"");
}

void beginExport(Client& c) {
    runExport<&::DataConnector::InitializeExportFolder>(c, L"Phone list");
}

void synchronize(Client& c) {
    runExport<&::DataConnector::SynchronizeExportFolder>(c, L"Staff");
}

// ---- The cache

void fillCache(Client& c) {
    const auto fill = reinterpret_cast<bool(__cdecl*)()>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"prove_fill.dll"), "fill")));
    c.note("filled", fill() ? L"yes" : L"");
}

const Scenario kScenarios[] = {
    {"start-up", [](Client&) {}, startUp, Nothing, true},
    {"start-up-logged", [](Client&) {}, startUp, Nothing, true, L"2"},
    {"start-up-shown", [](Client&) {}, startUp, Nothing, true, L"1"},
    {"shut-down", afterWork, shutDown, Nothing, true},
    {"about", start, tell},
    {"search-by-number", open, byNumber},
    {"search-by-name", open, byName},
    {"search-logged", open, byNumber, Nothing, false, L"2"},
    {"stale-row", open, stale, Settles},
    {"walk", open, walk},
    {"collection", open, collect},
    {"contact",
     haveAda,
     searchAndRead,
     Settles,
     false,
     L"",
     {"MainPhoneNumber=52", "MainEmail=a@x.org", "email=a@x.org"}},
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
    {"folders", start, chooseFolders},
    {"folders-saved", start, saveFolders, Whole},
    {"folder-made", start, makeFolder, Settles},
    {"export-begun", start, beginExport, Adds},
    {"export", start, synchronize, Settles},
    {"fill", [](Client&) {}, fillCache, Settles, false, L"", {}, false},
    {"fill-new",
     [](Client&) { DeleteFileW(Stage::current().file(L"connec00.mdb").c_str()); },
     fillCache,
     Settles,
     false,
     L"",
     {},
     false},
};

}  // namespace

std::span<const Scenario> scenarios() {
    return kScenarios;
}

}  // namespace prove
