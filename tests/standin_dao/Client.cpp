#include "tests/standin_dao/Client.h"

namespace client {

DaoTest::DaoTest() {
    database_ = engine_.object({L"CreateDatabase", zelbar::kUnknownClass}, path_, L";LANGID=0x0409;CP=1252");
}

DaoTest::~DaoTest() {
    database_ = Object();
    engine_ = Object();
    EXPECT_EQ(host_.server().liveObjects(), 0);
}

Object DaoTest::newEngine() {
    zelbar::Com<IDispatch> engine;
    CoCreateInstance(standin::dao::kEngineClass, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch),
                     reinterpret_cast<void**>(engine.put()));
    return Object(gateway_, zelbar::Server::Dao, std::move(engine), zelbar::kUnknownClass);
}

Object DaoTest::open(const std::wstring& path) {
    return engine_.object({L"OpenDatabase"}, path);
}

Object DaoTest::query(const Object& database, const std::wstring& sql) {
    return database.object({L"OpenRecordset"}, sql, kDynaset);
}

void DaoTest::makeCache(const std::vector<std::wstring>& names) {
    run(L"CREATE TABLE TCache (Name TEXT(255), PhoneNumber TEXT(50), EntryId TEXT(255), StoreID TEXT(10))");
    run(L"CREATE INDEX NameIndex ON TCache (Name)");
    run(L"CREATE INDEX NumberIndex ON TCache (PhoneNumber)");
    long number = 1000;
    const Object rows = database_.object({L"OpenRecordset"}, L"TCache");
    for (const std::wstring& name : names) {
        rows.call({L"AddNew"});
        rows.object({L"Fields"}, L"Name").put({L"Value"}, name);
        rows.object({L"Fields"}, L"PhoneNumber").put({L"Value"}, std::to_wstring(++number));
        rows.call({L"Update"});
    }
}

std::wstring text(const Object& recordset, const std::wstring& field) {
    return recordset.object({L"Fields"}, field).text({L"Value"});
}

std::wstring column(const Object& recordset, const std::wstring& field) {
    std::wstring all;
    for (; !recordset.boolean({L"EOF"}); recordset.call({L"MoveNext"})) all += text(recordset, field) + L" ";
    return all;
}

}  // namespace client
