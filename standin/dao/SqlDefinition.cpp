#include "standin/dao/SqlDefinition.h"

#include <algorithm>
#include <cwchar>

#include "standin/dao/DaoError.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

constexpr int kBadTable = 3290;
constexpr int kBadIndex = 3291;
constexpr int kBadField = 3292;
constexpr int kBadConstraint = 3289;
constexpr int kBadDrop = 3295;
constexpr int kUnknownTable = 3376;
constexpr int kGreatestTextSize = 255;
constexpr const wchar_t* kPrimaryKey = L"PrimaryKey";

struct IndexDefinition {
    std::wstring name;
    std::wstring column;
    bool unique = false;
};

/// Besides the index itself, whose order is that of the language, a second one by which texts that begin
/// alike are found.
void addIndex(Command& command, const Table& table, const IndexDefinition& index) {
    const int position = table.find(index.column);
    if (position < 0) raise(kBadIndex);
    command.statements.push_back((index.unique ? L"CREATE UNIQUE INDEX " : L"CREATE INDEX ") +
                                 quoted(storedIndexName(table.name, index.name)) + L" ON " +
                                 quoted(table.name) + L" (" + quoted(index.column) + L")");
    if (!isText(table.columns[static_cast<std::size_t>(position)].type)) return;
    command.statements.push_back(L"CREATE INDEX " + quoted(storedPrefixIndexName(table.name, index.name)) +
                                 L" ON " + quoted(table.name) + L" (" + quoted(index.column) +
                                 L" COLLATE JET_PREFIX)");
}

std::wstring columnDefinition(const Column& column) {
    const std::wstring name = quoted(column.name);
    std::wstring sql = name + L" " + storedType(column);
    if (column.type == JetType::yesNo) sql += L" DEFAULT 0";
    if (isText(column.type)) {
        sql += L" COLLATE JET";
        if (column.size > 0) {
            sql += L" CONSTRAINT jet_size CHECK (jet_length(" + name + L") <= " +
                   std::to_wstring(column.size) + L")";
        }
    } else {
        sql += L" CONSTRAINT jet_type CHECK (typeof(" + name + L") <> 'text')";
    }
    return sql;
}

class TableTranslator {
  public:
    explicit TableTranslator(SqlReader& reader) : reader_(reader) {}

    Command run() {
        table_.name = reader_.expectName(kBadTable);
        // SQLite keeps these names for itself, in any case of letters.
        if (foldCase(table_.name).starts_with(L"sqlite_")) raise(kBadTable);
        if (reader_.schema().find(table_.name)) raise(3010, table_.name);
        reader_.expectSymbol(L"(", kBadTable);
        do {
            field();
        } while (reader_.acceptSymbol(L","));
        reader_.expectSymbol(L")", kBadTable);
        reader_.expectEnd(kBadTable);

        Command command{{L"CREATE TABLE " + quoted(table_.name) + L" (" + definitions_ + L")"}, {}, true};
        for (const IndexDefinition& index : indexes_) addIndex(command, table_, index);
        return command;
    }

  private:
    void field() {
        Column column{reader_.expectName(kBadField)};
        if (table_.find(column.name) >= 0) raise(3380, column.name, table_.name);
        if (reader_.peek().kind != TokenKind::word || !typeFromSql(reader_.next().text, column))
            raise(kBadField);
        if (reader_.acceptSymbol(L"(")) {
            if (reader_.peek().kind != TokenKind::number || column.type != JetType::text) raise(kBadField);
            column.size = static_cast<int>(std::wcstol(reader_.next().text.c_str(), nullptr, 10));
            if (column.size < 1 || column.size > kGreatestTextSize) raise(kBadField);
            reader_.expectSymbol(L")", kBadField);
        }
        definitions_ += (definitions_.empty() ? L"" : L", ") + columnDefinition(column);
        table_.columns.push_back(column);
        if (!reader_.acceptWord(L"PRIMARY")) return;
        reader_.expectWord(L"KEY", kBadConstraint);
        indexes_.push_back({kPrimaryKey, column.name, true});
    }

    SqlReader& reader_;
    Table table_;
    std::wstring definitions_;
    std::vector<IndexDefinition> indexes_;
};

Command translateCreateIndex(SqlReader& reader) {
    IndexDefinition index{reader.expectName(kBadIndex), {}};
    reader.expectWord(L"ON", kBadIndex);
    const std::wstring name = reader.expectName(kBadIndex);
    const Table* table = reader.schema().find(name);
    if (!table) raise(kUnknownTable, name);
    if (reader.schema().hasIndex(name, index.name)) raise(3375, name, index.name);
    reader.expectSymbol(L"(", kBadIndex);
    index.column = reader.expectName(kBadIndex);
    reader.expectSymbol(L")", kBadIndex);
    reader.expectEnd(kBadIndex);
    Command command;
    command.changesTables = true;
    addIndex(command, *table, index);
    return command;
}

}  // namespace

Command translateCreate(SqlReader& reader) {
    if (reader.acceptWord(L"TABLE")) return TableTranslator(reader).run();
    reader.expectWord(L"INDEX", kBadTable);
    return translateCreateIndex(reader);
}

Command translateDrop(SqlReader& reader) {
    reader.expectWord(L"TABLE", kBadDrop);
    const std::wstring name = reader.expectName(kBadDrop);
    reader.expectEnd(kBadDrop);
    if (!reader.schema().find(name)) raise(kUnknownTable, name);
    return {{L"DROP TABLE " + quoted(name)}, {}, true};
}

}  // namespace standin::dao
