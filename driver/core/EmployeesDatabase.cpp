#include "core/EmployeesDatabase.h"

#include <windows.h>

#include <utility>

#include "automation/DaoNames.h"
#include "automation/Fault.h"

namespace zelbar {

void EmployeesDatabase::open(const std::wstring& path) {
    if (database_ && (path.empty() || lstrcmpiW(path.c_str(), path_.c_str()) == 0)) return;
    if (path.empty()) throw runtimeFault(fault::kObjectNotSet);
    close();
    database_ = cache_.openOther(path);
    path_ = path;
}

Object EmployeesDatabase::openSnapshot(const std::wstring& sql) {
    try {
        return database_.object(dao::OpenRecordset, sql, dao::kOpenSnapshot);
    } catch (...) {
        const Fault fault = caughtFault();
        try {
            close();
        } catch (...) {
            // It was no good any more; the query's fault is the one that tells.
        }
        throw fault;
    }
}

void EmployeesDatabase::close() {
    if (const Object database = std::exchange(database_, {})) database.call(dao::Close);
}

}  // namespace zelbar
