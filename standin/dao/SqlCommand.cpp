#include "standin/dao/SqlCommand.h"

#include "standin/dao/DaoError.h"
#include "standin/dao/SqlDefinition.h"
#include "standin/dao/SqlExpression.h"
#include "standin/dao/SqlReader.h"

namespace standin::dao {
namespace {

constexpr int kBadInsert = 3134;
constexpr int kBadUpdate = 3144;
constexpr int kBadFrom = 3131;
constexpr int kAfterEnd = 3142;

const Table& findTable(const SqlReader& reader, const std::wstring& name, int error) {
    const Table* table = reader.schema().find(name);
    if (!table) raise(error, name);
    return *table;
}

Command finish(SqlReader& reader, std::wstring sql) {
    reader.expectEnd(kAfterEnd);
    reader.raiseIfUnknown();
    return {{std::move(sql)}, reader.values(), false};
}

std::wstring condition(SqlReader& reader, const std::vector<Source>& sources) {
    if (!reader.acceptWord(L"WHERE")) return {};
    return L" WHERE " + ExpressionTranslator(reader, sources).condition();
}

std::vector<std::wstring> readTargets(SqlReader& reader, const Table& table) {
    std::vector<std::wstring> names;
    if (reader.acceptSymbol(L"(")) {
        do {
            names.push_back(reader.expectName(kBadInsert));
            if (table.find(names.back()) < 0) raise(3127, names.back());
        } while (reader.acceptSymbol(L","));
        reader.expectSymbol(L")", kBadInsert);
    } else {
        for (const Column& column : table.columns) names.push_back(column.name);
    }
    return names;
}

Command translateInsert(SqlReader& reader) {
    reader.expectWord(L"INTO", kBadInsert);
    const Table& table = findTable(reader, reader.expectName(kBadInsert), 3192);
    const std::vector<std::wstring> targets = readTargets(reader, table);
    std::wstring sql = L"INSERT INTO " + quoted(table.name) + L" (";
    for (const std::wstring& target : targets)
        sql += (&target == &targets.front() ? L"" : L", ") + quoted(target);
    sql += L") ";

    reader.expectWord(L"VALUES", kBadInsert);
    reader.expectSymbol(L"(", kBadInsert);
    sql += L"VALUES (";
    std::size_t count = 0;
    const std::vector<Source> none;
    do {
        sql += (count++ == 0 ? L"" : L", ") + ExpressionTranslator(reader, none).translate().sql;
    } while (reader.acceptSymbol(L","));
    reader.expectSymbol(L")", kBadInsert);
    sql += L")";
    if (count != targets.size()) raise(3346);
    return finish(reader, std::move(sql));
}

Command translateDelete(SqlReader& reader) {
    reader.expectWord(L"FROM", kBadFrom);
    const Table& table = findTable(reader, reader.expectName(kBadFrom), 3078);
    const std::vector<Source> sources{{table.name, &table}};
    return finish(reader, L"DELETE FROM " + quoted(table.name) + condition(reader, sources));
}

Command translateUpdate(SqlReader& reader) {
    const Table& table = findTable(reader, reader.expectName(kBadUpdate), 3078);
    const std::vector<Source> sources{{table.name, &table}};
    reader.expectWord(L"SET", kBadUpdate);
    std::wstring assignments;
    do {
        const std::wstring target = reader.expectName(kBadUpdate);
        reader.expectSymbol(L"=", kBadUpdate);
        if (table.find(target) < 0) reader.addUnknown(target);
        assignments += (assignments.empty() ? L"" : L", ") + quoted(target) + L" = " +
                       ExpressionTranslator(reader, sources).translate().sql;
    } while (reader.acceptSymbol(L","));
    return finish(reader,
                  L"UPDATE " + quoted(table.name) + L" SET " + assignments + condition(reader, sources));
}

}  // namespace

Command translateCommand(std::wstring_view sql, const Schema& schema) {
    SqlReader reader(sql, schema);
    if (reader.isWord(L"SELECT")) raise(3065);
    if (reader.acceptWord(L"INSERT")) return translateInsert(reader);
    if (reader.acceptWord(L"DELETE")) return translateDelete(reader);
    if (reader.acceptWord(L"UPDATE")) return translateUpdate(reader);
    if (reader.acceptWord(L"CREATE")) return translateCreate(reader);
    if (reader.acceptWord(L"DROP")) return translateDrop(reader);
    raise(3129);
}

}  // namespace standin::dao
