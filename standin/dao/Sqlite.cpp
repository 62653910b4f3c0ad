#include "standin/dao/Sqlite.h"

#include <windows.h>

#include "standin/dao/DaoError.h"
#include "standin/dao/JetFunctions.h"

namespace standin::dao {
namespace {

/// How long a statement waits for another client's lock before it fails.
constexpr int kLockWaitMilliseconds = 400;

std::string utf8(std::wstring_view text) {
    const int units = static_cast<int>(text.size());
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), units, result.data(), length, nullptr, nullptr);
    return result;
}

std::wstring computerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    GetComputerNameW(name, &size);
    return name;
}

/// Exclusive use can be asked for only by an address, not by a path.
std::string address(const std::wstring& path, Access access) {
    constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789:/._-";
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string result = "file:///";
    for (const char c : utf8(path)) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\') {
            result += '/';
        } else if (kPlain.find(c) != std::string_view::npos) {
            result += c;
        } else {
            result += {'%', kDigits[byte / 16], kDigits[byte % 16]};
        }
    }
    return result + (access == Access::exclusive ? "?exclusive=1" : "");
}

[[noreturn]] void raiseConstraint(sqlite3* connection) {
    // "NOT NULL constraint failed: Table.Column", "CHECK constraint failed: name"
    const std::string message = sqlite3_errmsg(connection);
    switch (sqlite3_extended_errcode(connection)) {
        case SQLITE_CONSTRAINT_NOTNULL: {
            const std::string column = message.substr(message.rfind('.') + 1);
            raise(3314, std::wstring(column.begin(), column.end()));
        }
        case SQLITE_CONSTRAINT_CHECK:
            raise(message.ends_with("jet_type") ? 3464 : 3163);
        default:
            raise(3022);
    }
}

}  // namespace

void raiseSqlite(sqlite3* connection) {
    constexpr int kPrimaryCode = 0xFF;
    switch (sqlite3_errcode(connection) & kPrimaryCode) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            raise(3260, computerName());
        case SQLITE_READONLY:
            raise(3027);
        case SQLITE_CONSTRAINT:
            raiseConstraint(connection);
        case SQLITE_FULL:
            raise(3026);
        case SQLITE_NOTADB:
            raise(3343);
        case SQLITE_CORRUPT:
            raise(3049);
        case SQLITE_IOERR:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            raise(3051);
        case SQLITE_MISMATCH:
            raise(3464);
        default: {
            const std::string message = sqlite3_errmsg(connection);
            throw DaoError{3000, L"Reserved error: " + std::wstring(message.begin(), message.end())};
        }
    }
}

Statement::Statement(sqlite3* connection, std::wstring_view sql) : connection_(connection) {
    sqlite3_stmt* statement = nullptr;
    const int bytes = static_cast<int>(sql.size() * sizeof(wchar_t));
    if (sqlite3_prepare16_v2(connection, sql.data(), bytes, &statement, nullptr) != SQLITE_OK) {
        raiseSqlite(connection);
    }
    statement_.reset(statement);
}

void Statement::bind(int position, const Cell& value) {
    sqlite3_stmt* const raw = statement_.get();
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
        sqlite3_bind_int64(raw, position, *integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
        sqlite3_bind_double(raw, position, *number);
    } else if (const auto* text = std::get_if<std::wstring>(&value)) {
        sqlite3_bind_text16(raw, position, text->data(), static_cast<int>(text->size() * sizeof(wchar_t)),
                            SQLITE_TRANSIENT);
    } else {
        sqlite3_bind_null(raw, position);
    }
}

void Statement::bind(const std::vector<Cell>& values) {
    int position = 0;
    for (const Cell& value : values) bind(++position, value);
}

bool Statement::step() {
    switch (sqlite3_step(statement_.get())) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            raiseSqlite(connection_);
    }
}

void Statement::reset() {
    sqlite3_reset(statement_.get());
}

Cell Statement::cell(int column) const {
    switch (sqlite3_column_type(statement_.get(), column)) {
        case SQLITE_INTEGER:
            return integer(column);
        case SQLITE_FLOAT:
            return sqlite3_column_double(statement_.get(), column);
        case SQLITE_NULL:
            return {};
        default:
            return text(column);
    }
}

std::wstring Statement::text(int column) const {
    const auto* text = static_cast<const wchar_t*>(sqlite3_column_text16(statement_.get(), column));
    const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes16(statement_.get(), column));
    return text ? std::wstring(text, bytes / sizeof(wchar_t)) : std::wstring();
}

Connection::Connection(const std::wstring& path, Access access) {
    int flags = SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE;
    flags |= access == Access::readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
    if (access == Access::create) flags |= SQLITE_OPEN_CREATE;
    sqlite3* connection = nullptr;
    const int outcome = sqlite3_open_v2(address(path, access).c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    if (outcome != SQLITE_OK) raiseSqlite(connection);
    sqlite3_busy_timeout(connection, kLockWaitMilliseconds);
    addJetFunctions(connection);
    if (access == Access::create) run(L"PRAGMA encoding = 'UTF-16le'");
    // A transaction stays in memory until it is committed, so that readers see the old data without waiting.
    run(L"PRAGMA cache_spill = OFF");
    run(L"PRAGMA temp_store = MEMORY");
    run(L"PRAGMA cache_size = -16384");
    // What is committed survives the process; it need not survive the machine.
    run(L"PRAGMA synchronous = OFF");
}

Reading::Reading(Connection& connection)
    : connection_(connection), open_(sqlite3_get_autocommit(connection.connection_.get()) != 0) {
    if (open_) connection_.run(L"BEGIN");
}

Reading::~Reading() {
    if (open_) sqlite3_exec(connection_.connection_.get(), "COMMIT", nullptr, nullptr, nullptr);
}

void Connection::run(std::wstring_view sql) {
    Statement statement = prepare(sql);
    while (statement.step()) {
    }
}

}  // namespace standin::dao
