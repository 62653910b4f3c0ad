#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standin/dao/Schema.h"

namespace standin::dao {

struct StatementCloser {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
struct ConnectionCloser {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};

/// A prepared statement. Failures are thrown as DaoError.
class Statement {
  public:
    Statement(sqlite3* connection, std::wstring_view sql);

    /// Positions count from 1.
    void bind(int position, const Cell& value);
    void bind(const std::vector<Cell>& values);
    /// True when there is a row to read.
    bool step();
    /// Ends the reading and with it the lock that it holds; the statement can be run again.
    void reset();

    /// Columns count from 0.
    Cell cell(int column) const;
    std::int64_t integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    std::wstring text(int column) const;

  private:
    sqlite3* connection_;
    std::unique_ptr<sqlite3_stmt, StatementCloser> statement_;
};

/// Resets a statement at the end of a scope.
class Resetting {
  public:
    explicit Resetting(Statement& statement) : statement_(statement) {}
    ~Resetting() { statement_.reset(); }
    Resetting(const Resetting&) = delete;
    Resetting& operator=(const Resetting&) = delete;

  private:
    Statement& statement_;
};

enum class Access { readWrite, readOnly, exclusive, create };

/// An open database file that knows Jet's Like and sort orders. Failures are thrown as DaoError.
class Connection {
  public:
    Connection(const std::wstring& path, Access access);

    Statement prepare(std::wstring_view sql) { return Statement(connection_.get(), sql); }
    void run(std::wstring_view sql);
    /// Rows that the last statement changed.
    long changes() const { return sqlite3_changes(connection_.get()); }
    std::int64_t lastRow() const { return sqlite3_last_insert_rowid(connection_.get()); }
    bool isReadOnly() const { return sqlite3_db_readonly(connection_.get(), "main") == 1; }

  private:
    friend class Reading;
    std::unique_ptr<sqlite3, ConnectionCloser> connection_;
};

/// While it lives, what is read is of one moment; the file is locked once and not for each statement.
class Reading {
  public:
    explicit Reading(Connection& connection);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

  private:
    Connection& connection_;
    bool open_;
};

/// Throws the DaoError for the connection's last failure.
[[noreturn]] void raiseSqlite(sqlite3* connection);

}  // namespace standin::dao
