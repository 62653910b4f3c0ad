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

struct IndexPart {
    std::wstring column;
    bool descending = false;
};

struct IndexDefinition {
    std::wstring name;
    bool unique = false;
    std::vector<IndexPart> parts;
};

std::vector<IndexPart> readParts(SqlReader& reader, int error) {
    std::vector<IndexPart> parts;
    reader.expectSymbol(L"(", error);
    do {
        IndexPart part{reader.expectName(error)};
        part.descending = reader.acceptWord(L"DESC");
        if (!part.descending) reader.acceptWord(L"ASC");
        parts.push_back(std::move(part));
    } while (reader.acceptSymbol(L","));
    reader.expectSymbol(L")", error);
    return parts;
}

/// Besides the index itself, whose order is that of the language, a second one by which texts that begin
/// alike are found.
void addIndex(Command& command, const Table& table, const IndexDefinition& index) {
    std::wstring parts;
    for (const IndexPart& part : index.parts) {
        if (table.find(part.column) < 0) raise(kBadIndex);
        parts += (parts.empty() ? L"" : L", ") + quoted(part.column) + (part.descending ? L" DESC" : L"");
    }
    command.statements.push_back((index.unique ? L"CREATE UNIQUE INDEX " : L"CREATE INDEX ") +
                                 quoted(storedIndexName(table.name, index.name)) + L" ON " +
                                 quoted(table.name) + L" (" + parts + L")");
    const Column& first = table.columns[static_cast<std::size_t>(table.find(index.parts.front().column))];
    if (!isText(first.type)) return;
    command.statements.push_back(L"CREATE INDEX " + quoted(storedPrefixIndexName(table.name, index.name)) +
                                 L" ON " + quoted(table.name) + L" (" + quoted(first.name) +
                                 L" COLLATE JET_PREFIX)");
}

std::wstring columnDefinition(const Column& column, bool required) {
    const std::wstring name = quoted(column.name);
    std::wstring sql = name + L" " + storedType(column);
    if (column.isCounter) return sql + L" PRIMARY KEY AUTOINCREMENT";
    if (required) sql += L" NOT NULL";
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
        if (reader_.schema().find(table_.name)) raise(3010, table_.name);
        reader_.expectSymbol(L"(", kBadTable);
        do {
            if (reader_.acceptWord(L"CONSTRAINT")) {
                tableConstraint(reader_.expectName(kBadConstraint));
            } else if (reader_.isWord(L"PRIMARY") || reader_.isWord(L"UNIQUE")) {
                tableConstraint(kPrimaryKey);
            } else {
                field();
            }
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
        const bool required = reader_.acceptWord(L"NOT");
        if (required) {
            reader_.expectWord(L"NULL", kBadField);
        } else {
            reader_.acceptWord(L"NULL");
        }
        definitions_ += (definitions_.empty() ? L"" : L", ") + columnDefinition(column, required);
        table_.columns.push_back(column);
        fieldConstraint(column.name);
    }

    void fieldConstraint(const std::wstring& column) {
        std::wstring name = reader_.isWord(L"UNIQUE") ? column : kPrimaryKey;
        if (reader_.acceptWord(L"CONSTRAINT")) name = reader_.expectName(kBadConstraint);
        if (reader_.acceptWord(L"PRIMARY")) {
            reader_.expectWord(L"KEY", kBadConstraint);
        } else if (!reader_.acceptWord(L"UNIQUE")) {
            return;
        }
        indexes_.push_back({std::move(name), true, {{column}}});
    }

    void tableConstraint(std::wstring name) {
        if (reader_.acceptWord(L"PRIMARY")) {
            reader_.expectWord(L"KEY", kBadConstraint);
        } else {
            reader_.expectWord(L"UNIQUE", kBadConstraint);
        }
        indexes_.push_back({std::move(name), true, readParts(reader_, kBadConstraint)});
    }

    SqlReader& reader_;
    Table table_;
    std::wstring definitions_;
    std::vector<IndexDefinition> indexes_;
};

Command translateCreateIndex(SqlReader& reader, bool unique) {
    IndexDefinition index{reader.expectName(kBadIndex), unique, {}};
    reader.expectWord(L"ON", kBadIndex);
    const std::wstring name = reader.expectName(kBadIndex);
    const Table* table = reader.schema().find(name);
    if (!table) raise(kUnknownTable, name);
    if (reader.schema().hasIndex(name, index.name)) raise(3375, name, index.name);
    index.parts = readParts(reader, kBadIndex);
    if (reader.acceptWord(L"WITH")) {
        if (reader.acceptWord(L"PRIMARY")) {
            index.unique = true;
        } else {
            // "Disallow Null" and "Ignore Null" do not change what is found.
            if (!reader.acceptWord(L"DISALLOW")) reader.expectWord(L"IGNORE", kBadIndex);
            reader.expectWord(L"NULL", kBadIndex);
        }
    }
    reader.expectEnd(kBadIndex);
    Command command;
    command.changesTables = true;
    addIndex(command, *table, index);
    return command;
}

}  // namespace

Command translateCreate(SqlReader& reader) {
    if (reader.acceptWord(L"TABLE")) return TableTranslator(reader).run();
    const bool unique = reader.acceptWord(L"UNIQUE");
    reader.expectWord(L"INDEX", kBadTable);
    return translateCreateIndex(reader, unique);
}

Command translateDrop(SqlReader& reader) {
    if (reader.acceptWord(L"TABLE")) {
        const std::wstring name = reader.expectName(kBadDrop);
        reader.expectEnd(kBadDrop);
        if (!reader.schema().find(name)) raise(kUnknownTable, name);
        return {{L"DROP TABLE " + quoted(name)}, {}, true};
    }
    reader.expectWord(L"INDEX", kBadDrop);
    const std::wstring index = reader.expectName(kBadDrop);
    reader.expectWord(L"ON", kBadDrop);
    const std::wstring table = reader.expectName(kBadDrop);
    reader.expectEnd(kBadDrop);
    if (!reader.schema().hasIndex(table, index)) raise(3372, index, table);
    return {{L"DROP INDEX " + quoted(storedIndexName(table, index)),
             L"DROP INDEX IF EXISTS " + quoted(storedPrefixIndexName(table, index))},
            {},
            true};
}

}  // namespace standin::dao
