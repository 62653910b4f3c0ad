#include "benchmark/World.h"

#include <stdexcept>

#include "automation/Bstr.h"
#include "automation/DaoNames.h"
#include "automation/Fault.h"
#include "automation/Gateway.h"
#include "automation/OutlookNames.h"

namespace benchmark {

namespace {

namespace dao = zelbar::dao;
namespace outlook = zelbar::outlook;

constexpr wchar_t kClientKey[] = L"Software\\Norvane\\7316\\VEXPhone";
constexpr wchar_t kGeneralSortOrder[] = L";LANGID=0x0409;CP=1252;COUNTRY=0";
constexpr zelbar::Member kWorkspaces{L"Workspaces", dao::kWorkspace};

void checked(HRESULT result) {
    if (FAILED(result)) throw zelbar::faultOf(result, L"driver");
}

std::wstring padded(long row) {
    wchar_t digits[16];
    std::swprintf(digits, 16, L"%07ld", row);
    return digits;
}

/// The digits of a number as systems present it, behind one of their prefixes.
std::wstring form(const wchar_t* prefix, const std::wstring& number) {
    std::wstring digits = prefix;
    for (const wchar_t c : number.substr(3))
        if (c != L' ') digits += c;
    return digits;
}

void addRows(const Object& table, const CacheRows& rows) {
    const Object name = table.object(dao::FieldNamed, L"Name");
    const Object number = table.object(dao::FieldNamed, L"PhoneNumber");
    const Object entryId = table.object(dao::FieldNamed, L"EntryId");
    const Object storeId = table.object(dao::FieldNamed, L"StoreID");
    const auto add = [&](const std::wstring& named, const std::wstring& presented,
                         const ContactPlace& contact) {
        table.call(dao::AddNew);
        if (!named.empty()) name.put(dao::Value, named);
        number.put(dao::Value, presented);
        entryId.put(dao::Value, contact.entryId);
        storeId.put(dao::Value, L"1");
        table.call(dao::Update);
    };
    for (long row = 0; row < rows.count; ++row) {
        const std::wstring stored = CacheRows::number(row);
        add(CacheRows::name(row), stored, rows.contact);
        if (!rows.withForms) continue;
        for (const wchar_t* prefix : {L"+33", L"0033", L"0", L"33"})
            add(L"", form(prefix, stored), rows.contact);
    }
    for (const ContactPlace& person : rows.people)
        add(L"Person " + person.entryId, L"+49 9 " + person.entryId, person);
}

}  // namespace

std::wstring CacheRows::number(long row) {
    return L"+33 4 " + padded(row);
}
std::wstring CacheRows::name(long row) {
    return L"Caller" + padded(row) + L" Ada";
}

DataFolder::DataFolder(const wchar_t* name) : path_(std::filesystem::temp_directory_path() / name) {
    std::filesystem::create_directory(path_);
    use();
}

void DataFolder::use() const {
    const std::wstring text = path_.native();
    RegSetKeyValueW(HKEY_CURRENT_USER, kClientKey, L"DataPath", REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

DataFolder::~DataFolder() {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kClientKey, L"DataPath");
}

void DataFolder::writeCache(const CacheRows& rows) const {
    std::filesystem::remove(cacheFile());
    zelbar::Gateway gateway;
    const Object engine = gateway.create(zelbar::Server::Dao, dao::kEngineProgIds[0], dao::kEngine);
    const Object workspace = engine.object(kWorkspaces, 0);
    const Object database = workspace.object(dao::CreateDatabase, cacheFile().native(), kGeneralSortOrder);
    for (const wchar_t* sql :
         {L"Create Table TStoreID ([Index] Text(50), StoreID Memo)",
          L"Create Table TCache ([Name] Text(255), PhoneNumber Text(255), EntryId Memo, StoreID Text(50))",
          L"Create Index [Name] On TCache ([Name])", L"Create Index PhoneNumber On TCache (PhoneNumber)"})
        database.call(dao::Execute, sql);
    const Object stores = database.object(dao::OpenRecordset, L"TStoreID");
    stores.call(dao::AddNew);
    stores.object(dao::FieldNamed, L"Index").put(dao::Value, L"1");
    stores.object(dao::FieldNamed, L"StoreID").put(dao::Value, rows.contact.storeId);
    stores.call(dao::Update);
    workspace.call(dao::BeginTrans);
    addRows(database.object(dao::OpenRecordset, L"TCache"), rows);
    workspace.call(dao::CommitTrans);
    database.call(dao::Close);
}

ContactPlace addContact(const Object& application, const std::wstring& lastName, const std::wstring& number) {
    const Object item = application.object(outlook::GetNamespace, L"MAPI")
                            .object(outlook::GetDefaultFolder, outlook::kDefaultContacts)
                            .object(outlook::Items)
                            .object(outlook::AddContact, outlook::kContactItemType);
    item.put(outlook::FirstName, L"Ada");
    item.put(outlook::LastName, lastName);
    item.put(outlook::CompanyName, L"Analytical Engines");
    item.put(outlook::Email1Address, L"ada@example.org");
    item.put(outlook::BusinessTelephoneNumber, number);
    item.put(outlook::MobileTelephoneNumber, number + L"1");
    item.put(outlook::HomeTelephoneNumber, number + L"2");
    item.call(outlook::Save);
    return {item.text(outlook::EntryID), item.object(outlook::Parent).text(outlook::StoreID)};
}

Com<::DataConnector> createDriver() {
    Com<::DataConnector> driver;
    checked(CoCreateInstance(CLSID_cDataConnector, nullptr, CLSCTX_INPROC_SERVER, __uuidof(::DataConnector),
                             reinterpret_cast<void**>(driver.put())));
    return driver;
}

Com<::Contact> findFirst(::DataConnector& driver, long kind, const std::wstring& text) {
    Com<::ContactRecord> cursor;
    checked(driver.OpenContactRecord(cursor.put()));
    Com<::Contact> contact;
    checked(cursor->FindFirst(&kind, zelbar::Bstr(text).get(), contact.put()));
    return contact;
}

void requireKnown(const Com<::Contact>& contact) {
    VARIANT_BOOL unknown = VARIANT_TRUE;
    if (!contact || FAILED(contact->get_NotInPIM(&unknown)) || unknown)
        throw std::runtime_error("a search did not find its contact");
}

}  // namespace benchmark
