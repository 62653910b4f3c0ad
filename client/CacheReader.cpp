#include "client/CacheReader.h"

#include "automation/Attempts.h"
#include "automation/DaoEngine.h"
#include "automation/DaoNames.h"
#include "client/DriverModule.h"

namespace pimcall {
namespace {

namespace dao = zelbar::dao;
using zelbar::Object;

/// Walks a recordset's rows once. The field objects show the value of whatever row is current.
class Walk {
  public:
    Walk(const Object& database, const std::wstring& query, std::initializer_list<const wchar_t*> columns)
        : rows_(database.object(dao::OpenRecordset, query, dao::kOpenForwardOnly)) {
        for (const wchar_t* column : columns) fields_.push_back(rows_.object(dao::FieldNamed, column));
    }
    ~Walk() {
        fields_.clear();
        zelbar::Attempts()([&] { rows_.call(dao::Close); });
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    bool atEnd() const { return rows_.boolean(dao::EOF_); }
    void next() const { rows_.call(dao::MoveNext); }
    std::wstring text(std::size_t column) const { return fields_[column].text(dao::Value); }

  private:
    Object rows_;
    std::vector<Object> fields_;
};

}  // namespace

CacheReader::CacheReader(const std::wstring& path) {
    constexpr bool kExclusive = false, kReadOnly = true;
    workspace_ = dao::createEngine(gateway_).object(dao::CreateWorkspace, L"", L"admin", L"", dao::kUseJet);
    database_ = workspace_.object(dao::OpenDatabase, path, kExclusive, kReadOnly);
}

CacheReader::~CacheReader() {
    zelbar::Attempts attempt;
    if (database_) attempt([&] { database_.call(dao::Close); });
    if (workspace_) attempt([&] { workspace_.call(dao::Close); });
}

std::vector<CacheReader::Store> CacheReader::stores() const {
    std::vector<Store> stores;
    for (const Walk walk(database_, L"Select * From TStoreID", {L"Index", L"StoreID"}); !walk.atEnd();
         walk.next())
        stores.push_back({walk.text(0), walk.text(1)});
    return stores;
}

void CacheReader::walk(const std::wstring& query, const std::function<bool(const Row&)>& visit) const {
    const Walk walk(database_, query, {L"Name", L"PhoneNumber", L"EntryId", L"StoreID"});
    for (; !walk.atEnd(); walk.next())
        if (!visit({walk.text(0), walk.text(1), walk.text(2), walk.text(3)})) return;
}

std::wstring cachePath() {
    return dataFolder().path + L"\\connec00.mdb";
}

}  // namespace pimcall
