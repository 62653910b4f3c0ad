// Jet's SQL as the stand-in for DAO reads it: whatever is written, it is either refused with one of DAO's
// errors or becomes statements that SQLite takes.

#include <sqlite3.h>
#include <windows.h>

#include "fuzz/Input.h"
#include "standin/dao/DaoError.h"
#include "standin/dao/SqlCommand.h"
#include "standin/dao/SqlSelect.h"

namespace {

using standin::dao::Cell;
using standin::dao::JetType;
using standin::dao::Schema;

const Schema kSchema{{{L"Contacts",
                       {{L"Name", JetType::text, 255},
                        {L"Number", JetType::text, 255},
                        {L"Note", JetType::memo, 0},
                        {L"Size", JetType::longInteger, 0},
                        {L"Private", JetType::yesNo, 0}}},
                      {L"Stores", {{L"Name", JetType::text, 50}, {L"Key", JetType::text, 20}}}},
                     {{L"Contacts", L"ByNumber"}}};

std::string utf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(text.size() * 4 + 1, '\0');
    bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

/// A database as the schema says, with what the translated statements need of Jet by name only.
sqlite3* openDatabase() {
    sqlite3* database = nullptr;
    FUZZ_EXPECT(sqlite3_open(":memory:", &database) == SQLITE_OK);
    for (const char* name : {"JET", "JET_PREFIX"}) {
        sqlite3_create_collation(database, name, SQLITE_UTF8, nullptr,
                                 [](void*, int, const void*, int, const void*) { return 0; });
    }
    const auto nothing = [](sqlite3_context*, int, sqlite3_value**) {};
    constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    sqlite3_create_function(database, "jet_like", 2, kPure, nullptr, nothing, nullptr, nullptr);
    sqlite3_create_function(database, "jet_length", 1, kPure, nullptr, nothing, nullptr, nullptr);
    for (const auto* sql :
         {L"Create Table Contacts (Name Text, Number Text, Note Memo, Size Long, Private YesNo)",
          L"Create Table Stores (Name Text(50), Key Text(20))"}) {
        for (const std::wstring& statement : standin::dao::translateCommand(sql, {}).statements)
            FUZZ_EXPECT(sqlite3_exec(database, utf8(statement).c_str(), nullptr, nullptr, nullptr) ==
                        SQLITE_OK);
    }
    return database;
}

/// SQLite takes the statement, or has a reason that Jet would have as well.
sqlite3_stmt* prepared(sqlite3* database, const std::wstring& sql) {
    const std::string bytes = utf8(sql);
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    if (sqlite3_prepare_v2(database, bytes.data(), static_cast<int>(bytes.size()), &statement, &rest) ==
        SQLITE_OK) {
        FUZZ_EXPECT(rest == bytes.data() + bytes.size());
        return statement;
    }
    std::fprintf(stderr, "%s\n%s\n", bytes.c_str(), sqlite3_errmsg(database));
    std::abort();
}

void take(sqlite3* database, const std::wstring& sql, const std::vector<Cell>& values) {
    sqlite3_stmt* statement = prepared(database, sql);
    FUZZ_EXPECT(sqlite3_bind_parameter_count(statement) <= static_cast<int>(values.size()));
    sqlite3_finalize(statement);
}

void select(sqlite3* database, std::wstring_view sql) {
    const auto plan = standin::dao::translateSelect(sql, kSchema);
    take(database, plan.rowsSql, plan.values);
    take(database, plan.keysSql, plan.values);
    sqlite3_stmt* row = prepared(database, plan.rowSql);
    FUZZ_EXPECT(sqlite3_column_count(row) == static_cast<int>(plan.fields.size()));
    FUZZ_EXPECT(sqlite3_bind_parameter_count(row) == static_cast<int>(plan.tables.size()));
    sqlite3_finalize(row);
}

void command(sqlite3* database, std::wstring_view sql) {
    const auto command = standin::dao::translateCommand(sql, kSchema);
    sqlite3_exec(database, "BEGIN", nullptr, nullptr, nullptr);
    for (const std::wstring& statement : command.statements) {
        take(database, statement, command.values);
        // What stands later may need what an earlier statement makes.
        if (command.changesTables) sqlite3_exec(database, utf8(statement).c_str(), nullptr, nullptr, nullptr);
    }
    sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static sqlite3* database = openDatabase();
    const std::wstring sql(data, data + size);
    try {
        standin::dao::isSelect(sql) ? select(database, sql) : command(database, sql);
    } catch (const standin::dao::DaoError& error) {
        FUZZ_EXPECT(error.number >= 3000 && error.number < 4000 && !error.text.empty());
    }
    return 0;
}
