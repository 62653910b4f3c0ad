#pragma once

#include <memory>
#include <string>

#include "standin/dao/FileAccess.h"
#include "standin/dao/Schema.h"
#include "standin/dao/SqlSelect.h"
#include "standin/dao/Sqlite.h"

namespace standin::dao {

/// One opening of a database file: its tables, its transactions, and the statements that change it.
class JetFile {
  public:
    /// Throws DAO's errors for a file that cannot be opened, or with Access::create cannot be made.
    JetFile(const std::wstring& name, Access access);

    const std::wstring& path() const { return path_; }
    bool isReadOnly() const { return connection_.isReadOnly(); }
    Connection& connection() { return connection_; }

    /// The tables as they are now, whoever made them.
    const Schema& schema();

    /// What a Recordset opened on a Select statement or on a table's name shows.
    SelectPlan plan(const std::wstring& source);

    /// Runs any other statement. Unless `failOnError`, rows that Jet cannot change are left alone without a
    /// word, as DAO does.
    void execute(const std::wstring& sql, bool failOnError);

    void begin();
    void commit();
    void rollback();

  private:
    void loadSchema();

    std::wstring path_;
    LockFile lock_;
    Connection connection_;
    Schema schema_;
    std::int64_t schemaVersion_ = -1;
};

}  // namespace standin::dao
