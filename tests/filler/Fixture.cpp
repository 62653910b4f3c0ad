#include "tests/filler/Fixture.h"

#include <algorithm>

#include "automation/DaoNames.h"
#include "automation/Gateway.h"
#include "automation/Object.h"
#include "support/Registry.h"

namespace {

namespace dao = zelbar::dao;
using zelbar::Object;

/// What registration enters so that the name leads to the class; the class itself is served by the test.
void nameClass(const std::wstring& progId, const wchar_t* classId) {
    auto key = zelbar::RegistryKey::create(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + progId + L"\\CLSID",
                                           KEY_ALL_ACCESS);
    key.write(L"", classId);
}

std::vector<CacheContent::Row> rowsOf(const Object& database, const wchar_t* table,
                                      const std::vector<const wchar_t*>& columns) {
    std::vector<CacheContent::Row> rows;
    const Object records =
        database.object(dao::OpenRecordset, std::wstring(L"Select * From ") + table, dao::kOpenDynaset);
    for (; !records.boolean(dao::EOF_); records.call(dao::MoveNext)) {
        CacheContent::Row row;
        for (const wchar_t* column : columns) {
            const zelbar::Variant value = records.object(dao::FieldNamed, column).get(dao::Value);
            row.push_back(value.type() == VT_NULL ? L"Null" : value.text());
        }
        rows.push_back(row);
    }
    records.call(dao::Close);
    std::sort(rows.begin(), rows.end());
    return rows;
}

}  // namespace

void CacheTest::SetUpTestSuite() {
    nameClass(L"Outlook.Application", L"{0006F03A-0000-0000-C000-000000000046}");
    nameClass(L"DAO.DBEngine.36", L"{00000100-0000-0010-8000-00AA006D2EA4}");
}

CacheTest::CacheTest() {
    registry_.set(HKEY_CURRENT_USER, L"Software\\Norvane\\7316\\VEXPhone", L"DataPath", folder_.path());
}

CacheContent CacheTest::content() const {
    zelbar::Gateway gateway;
    const Object engine = gateway.create(zelbar::Server::Dao, L"DAO.DBEngine.36", dao::kEngine);
    const Object database = engine.object(dao::OpenDatabase, path());
    CacheContent content{rowsOf(database, L"TStoreID", {L"Index", L"StoreID"}),
                         rowsOf(database, L"TCache", {L"Name", L"PhoneNumber", L"EntryId", L"StoreID"})};
    database.call(dao::Close);
    return content;
}

std::wstring CacheTest::flag() const {
    return registry_.get(HKEY_CURRENT_USER, kPopup, L"SynchroInProgress").value_or(L"absent");
}

bool CacheTest::isTidy() const {
    WIN32_FIND_DATAW entry{};
    HANDLE search = FindFirstFileW(folder_.file(L"*").c_str(), &entry);
    bool isTidy = true;
    do {
        const std::wstring name = entry.cFileName;
        if (name != L"." && name != L".." && name != L"connec00.mdb" && name != L"mailbox.db") isTidy = false;
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    return isTidy;
}

std::wstring CacheTest::update(const filler::AddressBook& book) {
    try {
        filler::SynchroFlag flag;
        zelbar::Gateway gateway;
        change_ = filler::updateCache(gateway, path(), book, flag, observer_);
        return {};
    } catch (const filler::Failure& failure) {
        return failure.sentence;
    }
}

filler::AddressBook smallBook(const std::wstring& tail) {
    filler::AddressBook book;
    book.storeIds = {L"STORE-A"};
    book.contacts = {{0, {L"E1", L"Byron Ada", {L"1", L"2"}}}, {0, {L"E2", L"Hopper Grace", {tail}}}};
    return book;
}
