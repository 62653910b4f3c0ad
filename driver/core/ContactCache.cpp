#include "core/ContactCache.h"

#include <windows.h>

#include <utility>

#include "automation/DaoEngine.h"
#include "automation/DaoNames.h"
#include "automation/Fault.h"
#include "support/Handle.h"

namespace zelbar {

std::wstring columnText(const Object& recordset, const wchar_t* column) {
    return recordset.object(dao::FieldNamed, column).text(dao::Value);
}

std::wstring ContactCache::path() const {
    return paths_.DataPath() + L"\\connec00.mdb";
}

bool ContactCache::fileExists() const {
    return static_cast<bool>(
        FileHandle(CreateFileW(path().c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)));
}

void ContactCache::openWorkspace() {
    workspace_ = dao::createEngine(gateway_).object(dao::CreateWorkspace, L"", L"admin", L"", dao::kUseJet);
}

Object ContactCache::openOther(const std::wstring& path) const {
    return workspace_.object(dao::OpenDatabase, path);
}

void ContactCache::openDatabase() {
    database_ = openOther(path());
}

Object ContactCache::openDynaset(const std::wstring& sql) const {
    return database_.object(dao::OpenRecordset, sql, dao::kOpenDynaset);
}

void ContactCache::ReadPst() noexcept {
    try {
        readStores();
    } catch (...) {
        log_.fault(L"Error(ReadPst): ", caughtFault());
    }
}

void ContactCache::readStores() {
    stores_.clear();
    log_.trace(L"ReadPst() read in connect00.mdb TStoreID table");
    const Object rows = openDynaset(L"Select * from TStoreID");
    for (int i = 1; !rows.boolean(dao::EOF_); ++i) {
        StoreTable::Entry entry{columnText(rows, L"StoreID"), columnText(rows, L"Index")};
        if (!stores_.add(entry)) throw runtimeFault(fault::kSubscriptOutOfRange);
        log_.trace(L"  i=", i);
        log_.trace(L"    Index  =", entry.index);
        log_.trace(L"    StoreID=", entry.storeId);
        rows.call(dao::MoveNext);
    }
    rows.call(dao::Close);
}

void ContactCache::closeDatabase() {
    if (const Object database = std::exchange(database_, {})) database.call(dao::Close);
}

void ContactCache::closeWorkspace() {
    if (const Object workspace = std::exchange(workspace_, {})) workspace.call(dao::Close);
}

}  // namespace zelbar
