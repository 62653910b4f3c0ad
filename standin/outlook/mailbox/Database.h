#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace standin::outlook {

using RowId = long long;
using Bytes = std::vector<unsigned char>;

class DatabaseError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// One connection to an SQLite file. Everything throws DatabaseError with SQLite's own text.
class Database {
  public:
    explicit Database(const std::filesystem::path& file);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void run(const char* script);
    RowId lastInserted() const noexcept;
    // Changes with every change of the file, by whomever.
    long version();

  private:
    friend class Query;
    friend class Reading;
    friend class Transaction;
    sqlite3* handle_ = nullptr;
    // Prepared statements that no query is using.
    std::multimap<std::string, sqlite3_stmt*, std::less<>> idle_;
};

// One run of a statement: bind in order, then step through the rows.
class Query {
  public:
    Query(Database& database, std::string_view sql);
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    Query& bind(RowId number);
    Query& bind(std::wstring_view text);
    Query& bind(const Bytes& data);
    // True while there is a row.
    bool next();
    // For statements without rows.
    void run();

    RowId number(int column) const;
    std::wstring text(int column) const;
    Bytes data(int column) const;

  private:
    void check(int outcome) const;

    Database& database_;
    std::string sql_;
    sqlite3_stmt* statement_ = nullptr;
    int bound_ = 0;
};

// While it lives, what is read is of one moment; the file is locked once and not for each query.
class Reading {
  public:
    explicit Reading(Database& database);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

  private:
    Database& database_;
    bool open_;
};

// Rolls back unless committed. May be nested; the inner ones then do nothing.
class Transaction {
  public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

  private:
    Database& database_;
    bool open_;
};

}  // namespace standin::outlook
