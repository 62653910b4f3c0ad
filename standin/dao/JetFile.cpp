#include "standin/dao/JetFile.h"

#include <algorithm>
#include <array>

#include "standin/dao/DaoError.h"
#include "standin/dao/SqlCommand.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

constexpr const wchar_t* kSavepoint = L"jet";

std::wstring checked(const std::wstring& name, Access access) {
    if (access != Access::create) {
        // An empty name has no whole path to look at.
        if (name.empty()) raise(3024);
        std::wstring path = wholePath(name);
        checkDatabaseFile(path, access);
        return path;
    }
    std::wstring path = wholePath(name);
    const std::size_t slash = path.find_last_of(L'\\');
    if (path.find(L'.', slash == std::wstring::npos ? 0 : slash) == std::wstring::npos) path += L".mdb";
    checkNewDatabaseFile(path);
    return path;
}

/// Rows that break a rule or are locked: what Execute passes over unless it is told to fail.
bool isRowError(int number) {
    constexpr std::array kRowErrors{3022, 3163, 3218, 3260, 3314, 3464};
    return std::find(kRowErrors.begin(), kRowErrors.end(), number) != kRowErrors.end();
}

}  // namespace

JetFile::JetFile(const std::wstring& name, Access access)
    : path_(checked(name, access)),
      lock_(access == Access::readOnly ? std::wstring() : LockFile::pathFor(path_)),
      connection_(path_, access) {
    try {
        if (access == Access::create) connection_.run(L"PRAGMA user_version = 4");
        schema();
    } catch (const DaoError& error) {
        if (error.number == 3343 || error.number == 3049) raise(error.number, path_);
        throw;
    }
}

const Schema& JetFile::schema() {
    Statement version = connection_.prepare(L"PRAGMA schema_version");
    version.step();
    const std::int64_t now = version.integer(0);
    version.reset();
    if (now != schemaVersion_) {
        loadSchema();
        schemaVersion_ = now;
    }
    return schema_;
}

void JetFile::loadSchema() {
    Schema fresh;
    Statement columns = connection_.prepare(
        L"SELECT m.name, c.name, c.type FROM sqlite_master AS m, pragma_table_info(m.name) AS c "
        L"WHERE m.type = 'table' AND m.name NOT GLOB 'sqlite_*' ORDER BY m._rowid_, c.cid");
    while (columns.step()) {
        const std::wstring table = columns.text(0);
        if (fresh.tables.empty() || fresh.tables.back().name != table) fresh.tables.push_back({table, {}});
        fresh.tables.back().columns.push_back(columnFromStored(columns.text(1), columns.text(2)));
    }
    Statement indexes = connection_.prepare(
        L"SELECT tbl_name, name FROM sqlite_master WHERE type = 'index' ORDER BY _rowid_");
    while (indexes.step()) {
        Index index;
        if (indexFromStored(indexes.text(0), indexes.text(1), index))
            fresh.indexes.push_back(std::move(index));
    }
    schema_ = std::move(fresh);
}

SelectPlan JetFile::plan(const std::wstring& source) {
    if (isSelect(source)) return translateSelect(source, schema());
    const Table* table = schema().find(source);
    if (!table) raise(3078, source);
    return selectWholeTable(*table);
}

void JetFile::execute(const std::wstring& sql, bool failOnError) {
    const Command command = translateCommand(sql, schema());
    if (isReadOnly()) raise(3027);
    begin();
    try {
        for (const std::wstring& text : command.statements) {
            Statement statement = connection_.prepare(text);
            statement.bind(command.values);
            statement.step();
        }
        commit();
    } catch (const DaoError& error) {
        rollback();
        if (failOnError || command.changesTables || !isRowError(error.number)) throw;
    }
}

void JetFile::begin() {
    connection_.run(std::wstring(L"SAVEPOINT ") + kSavepoint);
}

void JetFile::commit() {
    connection_.run(std::wstring(L"RELEASE ") + kSavepoint);
}

void JetFile::rollback() {
    connection_.run(std::wstring(L"ROLLBACK TO ") + kSavepoint);
    connection_.run(std::wstring(L"RELEASE ") + kSavepoint);
    // The version may have gone back with the tables, and its number will be given again to other ones.
    schemaVersion_ = -1;
}

}  // namespace standin::dao
