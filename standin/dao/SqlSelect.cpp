#include "standin/dao/SqlSelect.h"

#include <algorithm>

#include "standin/dao/DaoError.h"
#include "standin/dao/SqlExpression.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

constexpr int kBadSelect = 3141;
constexpr int kBadFrom = 3131;
constexpr int kBadOrder = 3138;
constexpr int kUnknownTable = 3078;

struct Item {
    ResultField field;
    std::wstring sql;
};

std::wstring join(const std::vector<std::wstring>& parts) {
    std::wstring text;
    for (const std::wstring& part : parts) text += (text.empty() ? L"" : L", ") + part;
    return text;
}

class SelectTranslator {
  public:
    explicit SelectTranslator(SqlReader& reader) : reader_(reader) {}

    SelectPlan run() {
        reader_.expectWord(L"SELECT", kBadSelect);
        // The fields can only be understood once the tables are known, which stand behind them.
        const std::size_t fieldList = reader_.position();
        while (!reader_.atEnd() && !reader_.isWord(L"FROM")) reader_.next();
        const std::size_t fromClause = reader_.position();
        reader_.expectWord(L"FROM", kBadSelect);
        readSources();
        const std::size_t rest = reader_.position();
        reader_.moveTo(fieldList);
        readItems();
        if (reader_.position() != fromClause) raise(kBadSelect);
        reader_.moveTo(rest);
        readCondition();
        readOrder();
        nameItems();
        return plan();
    }

  private:
    void readSources() {
        do {
            const std::wstring name = reader_.expectName(kBadFrom);
            const Table* table = reader_.schema().find(name);
            if (!table) raise(kUnknownTable, name);
            sources_.push_back({table->name, table});
        } while (reader_.acceptSymbol(L","));
    }

    void readItems() {
        do {
            if (reader_.isWord(L"FROM")) raise(kBadSelect);
            if (reader_.acceptSymbol(L"*")) {
                for (const Source& source : sources_) addAll(source);
            } else {
                addColumn();
            }
        } while (reader_.acceptSymbol(L","));
    }

    void addAll(const Source& source) {
        for (const Column& column : source.table->columns) {
            items_.push_back({{column.name, source.table->name, column},
                              quoted(source.alias) + L"." + quoted(column.name)});
        }
    }

    void addColumn() {
        const Expression column = ExpressionTranslator(reader_, sources_).column();
        if (!column.column) return;
        items_.push_back({{column.column->name, column.source->table->name, *column.column}, column.sql});
    }

    void readCondition() {
        if (!reader_.acceptWord(L"WHERE")) return;
        where_ = L" WHERE " + ExpressionTranslator(reader_, sources_).condition();
    }

    void readOrder() {
        if (!reader_.acceptWord(L"ORDER")) return;
        reader_.expectWord(L"BY", kBadOrder);
        do {
            const TokenKind kind = reader_.peek().kind;
            if (kind != TokenKind::word && kind != TokenKind::bracketed) raise(kBadOrder);
            order_.push_back(ExpressionTranslator(reader_, sources_).column().sql);
        } while (reader_.acceptSymbol(L","));
    }

    /// Columns of one name from two tables are told apart by their table's name before a dot.
    void nameItems() {
        std::vector<std::wstring> names;
        for (const Item& item : items_) {
            const auto same = [&](const Item& other) { return sameText(other.field.name, item.field.name); };
            const bool qualify = std::count_if(items_.begin(), items_.end(), same) > 1;
            names.push_back(qualify ? item.field.table + L"." + item.field.name : item.field.name);
        }
        for (std::size_t i = 0; i < items_.size(); ++i) items_[i].field.name = std::move(names[i]);
    }

    SelectPlan plan() {
        SelectPlan plan;
        std::vector<std::wstring> columns;
        for (Item& item : items_) {
            columns.push_back(item.sql);
            plan.fields.push_back(std::move(item.field));
        }
        std::vector<std::wstring> from;
        std::vector<std::wstring> keys;
        std::wstring keyTest;
        for (const Source& source : sources_) {
            plan.tables.push_back(source.table->name);
            from.push_back(quoted(source.table->name) + L" AS " + quoted(source.alias));
            keys.push_back(quoted(source.alias) + L"._rowid_");
            keyTest += (keyTest.empty() ? L" WHERE " : L" AND ") + keys.back() + L" = ?" +
                       std::to_wstring(keys.size());
        }
        std::vector<std::wstring> order = order_;
        // Rows that sort alike keep the order in which they were added.
        order.insert(order.end(), keys.begin(), keys.end());
        const std::wstring tail = L" FROM " + join(from) + where_ + L" ORDER BY " + join(order);
        plan.rowsSql = L"SELECT " + join(columns) + tail;
        plan.keysSql = L"SELECT " + join(keys) + tail;
        plan.rowSql = L"SELECT " + join(columns) + L" FROM " + join(from) + keyTest;
        plan.values = reader_.values();
        return plan;
    }

    SqlReader& reader_;
    std::vector<Source> sources_;
    std::vector<Item> items_;
    std::wstring where_;
    std::vector<std::wstring> order_;
};

}  // namespace

bool isSelect(std::wstring_view sql) {
    const std::vector<Token> tokens = tokenize(sql);
    return tokens.front().kind == TokenKind::word && sameText(tokens.front().text, L"SELECT");
}

SelectPlan translateSelect(std::wstring_view sql, const Schema& schema) {
    SqlReader reader(sql, schema);
    SelectPlan plan = SelectTranslator(reader).run();
    reader.expectEnd(3142);
    reader.raiseIfUnknown();
    return plan;
}

SelectPlan selectWholeTable(const Table& table) {
    const Schema schema{{table}, {}};
    return translateSelect(L"SELECT * FROM [" + table.name + L"]", schema);
}

}  // namespace standin::dao
