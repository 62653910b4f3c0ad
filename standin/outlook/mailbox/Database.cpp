#include "standin/outlook/mailbox/Database.h"

#include <sqlite3.h>

#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook {

Database::Database(const std::filesystem::path& file) {
    const int outcome = sqlite3_open(toUtf8(file.wstring()).c_str(), &handle_);
    if (outcome != SQLITE_OK) {
        const std::string reason = handle_ ? sqlite3_errmsg(handle_) : "out of memory";
        sqlite3_close(handle_);
        throw DatabaseError("cannot open the mailbox file: " + reason);
    }
    sqlite3_busy_timeout(handle_, 5000);
}

Database::~Database() {
    for (const auto& [sql, statement] : idle_) sqlite3_finalize(statement);
    sqlite3_close(handle_);
}

void Database::run(const char* script) {
    if (sqlite3_exec(handle_, script, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw DatabaseError(std::string("mailbox: ") + sqlite3_errmsg(handle_));
    }
}

RowId Database::lastInserted() const noexcept {
    return sqlite3_last_insert_rowid(handle_);
}

long Database::version() {
    Query query(*this, "PRAGMA data_version");
    query.next();
    return static_cast<long>(query.number(0)) + sqlite3_total_changes(handle_);
}

Query::Query(Database& database, std::string_view sql) : database_(database), sql_(sql) {
    const auto idle = database.idle_.find(sql);
    if (idle != database.idle_.end()) {
        statement_ = idle->second;
        database.idle_.erase(idle);
        return;
    }
    check(sqlite3_prepare_v2(database.handle_, sql_.c_str(), -1, &statement_, nullptr));
}

Query::~Query() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
    database_.idle_.emplace(std::move(sql_), statement_);
}

void Query::check(int outcome) const {
    if (outcome != SQLITE_OK)
        throw DatabaseError(std::string("mailbox: ") + sqlite3_errmsg(database_.handle_));
}

Query& Query::bind(RowId number) {
    check(sqlite3_bind_int64(statement_, ++bound_, number));
    return *this;
}

Query& Query::bind(std::wstring_view text) {
    const std::string bytes = toUtf8(text);
    check(sqlite3_bind_text(statement_, ++bound_, bytes.data(), static_cast<int>(bytes.size()),
                            SQLITE_TRANSIENT));
    return *this;
}

Query& Query::bind(const Bytes& data) {
    check(sqlite3_bind_blob(statement_, ++bound_, data.data(), static_cast<int>(data.size()),
                            SQLITE_TRANSIENT));
    return *this;
}

bool Query::next() {
    const int outcome = sqlite3_step(statement_);
    if (outcome == SQLITE_ROW) return true;
    check(outcome == SQLITE_DONE ? SQLITE_OK : outcome);
    return false;
}

void Query::run() {
    while (next()) {
    }
}

RowId Query::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

std::wstring Query::text(int column) const {
    const void* bytes = sqlite3_column_blob(statement_, column);
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
    return bytes ? fromUtf8({static_cast<const char*>(bytes), size}) : L"";
}

Bytes Query::data(int column) const {
    const auto* bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement_, column));
    return bytes ? Bytes(bytes, bytes + sqlite3_column_bytes(statement_, column)) : Bytes();
}

Reading::Reading(Database& database)
    : database_(database), open_(sqlite3_get_autocommit(database.handle_) != 0) {
    if (open_) database_.run("BEGIN");
}

Reading::~Reading() {
    if (open_) sqlite3_exec(database_.handle_, "COMMIT", nullptr, nullptr, nullptr);
}

Transaction::Transaction(Database& database)
    : database_(database), open_(sqlite3_get_autocommit(database.handle_) != 0) {
    if (open_) database_.run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open_) return;
    try {
        database_.run("ROLLBACK");
    } catch (const DatabaseError&) {
        // The connection is broken; SQLite rolls the file back when it is opened next.
    }
}

void Transaction::commit() {
    if (!open_) return;
    database_.run("COMMIT");
    open_ = false;
}

}  // namespace standin::outlook
