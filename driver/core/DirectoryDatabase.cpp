#include "core/DirectoryDatabase.h"

#include <utility>

#include "automation/DaoNames.h"

namespace zelbar {

Object DirectoryDatabase::openDynaset(const std::wstring& sql) {
    if (!database_) database_ = cache_.openOther(paths_.DataPath() + L"\\wxd.mdb");
    return database_.object(dao::OpenRecordset, sql, dao::kOpenDynaset);
}

void DirectoryDatabase::close() {
    if (const Object database = std::exchange(database_, {})) database.call(dao::Close);
}

}  // namespace zelbar
