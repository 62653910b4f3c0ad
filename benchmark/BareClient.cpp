#include "benchmark/BareClient.h"

#include "automation/DaoNames.h"

namespace benchmark {

namespace dao = zelbar::dao;

BareClient::BareClient(const std::filesystem::path& cacheFile)
    : database_(gateway_.create(zelbar::Server::Dao, dao::kEngineProgIds[0], dao::kEngine)
                    .object(dao::OpenDatabase, cacheFile.native())) {}

BareClient::~BareClient() {
    database_.call(dao::Close);
}

void BareClient::run(const Search& search) {
    const zelbar::Object rows = database_.object(dao::OpenRecordset,
                                                 std::wstring(L"Select * From TCache Where ") +
                                                     (search.kind == 1 ? L"Name" : L"PhoneNumber") +
                                                     L" Like \"" + search.pattern + L"\" Order By Name",
                                                 dao::kOpenDynaset);
    rows.call(dao::MoveLast);
    rows.call(dao::MoveFirst);
    rows.integer(dao::RecordCount);
    rows.boolean(dao::EOF_);
    rows.boolean(dao::BOF_);
    for (const wchar_t* column : {L"EntryId", L"StoreID", L"Name", L"PhoneNumber"})
        rows.object(dao::FieldNamed, column).text(dao::Value);
    rows.call(dao::Close);
}

}  // namespace benchmark
