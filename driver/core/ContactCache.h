#pragma once

#include <string>

#include "automation/Gateway.h"
#include "automation/Object.h"
#include "core/StoreTable.h"
#include "support/FLog.h"
#include "support/modMultiUser.h"

namespace zelbar {

/// The Jet database of contacts, connec00.mdb, and the workspace in which all of the driver's databases are
/// opened. The driver reads it and takes stale rows out; it neither makes it nor adds to it.
class ContactCache {
  public:
    /// All that is passed must outlive the cache.
    ContactCache(Gateway& gateway, FLog& log, modMultiUser& paths)
        : gateway_(gateway), log_(log), paths_(paths) {}

    std::wstring path() const;
    /// True when the file can be opened for reading.
    bool fileExists() const;

    /// Start-up's steps; each throws when DAO fails.
    void openWorkspace();
    void openDatabase();
    /// Reads the table of stores; its errors are logged, and what was read so far stays.
    void ReadPst() noexcept;

    const StoreTable& stores() const { return stores_; }

    /// A query on the cache as a dynaset. Throws when there is no database or the query fails.
    Object openDynaset(const std::wstring& sql) const;

    /// Opens another database in the workspace. Throws when DAO fails.
    Object openOther(const std::wstring& path) const;

    /// Shut-down's steps; nothing happens to what is not open.
    void closeDatabase();
    void closeWorkspace();

  private:
    void readStores();

    Gateway& gateway_;
    FLog& log_;
    modMultiUser& paths_;
    Object workspace_;
    Object database_;
    StoreTable stores_;
};

/// The text of a column in the recordset's current row; Null is empty. Throws when there is no such row or
/// column.
std::wstring columnText(const Object& recordset, const wchar_t* column);

}  // namespace zelbar
