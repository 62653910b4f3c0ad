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
    std::wstring alias;
    std::wstring sql;
    bool isNamed = false;
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
        distinct_ = reader_.acceptWord(L"DISTINCT");
        keyed_ = !distinct_;
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
            const bool hasAlias =
                reader_.acceptWord(L"AS") || reader_.peek().kind == TokenKind::bracketed ||
                (reader_.peek().kind == TokenKind::word && !isReserved(reader_.peek().text));
            sources_.push_back({hasAlias ? reader_.expectName(kBadFrom) : table->name, table});
        } while (reader_.acceptSymbol(L","));
    }

    void readItems() {
        do {
            if (reader_.isWord(L"FROM")) raise(kBadSelect);
            if (reader_.acceptSymbol(L"*")) {
                for (const Source& source : sources_) addAll(source);
            } else if (reader_.isSymbol(L".", 1) && reader_.isSymbol(L"*", 2)) {
                addAll(named(reader_.next().text));
                reader_.next();
                reader_.next();
            } else {
                addExpression();
            }
        } while (reader_.acceptSymbol(L","));
    }

    const Source& named(const std::wstring& alias) const {
        const auto found = std::find_if(sources_.begin(), sources_.end(),
                                        [&](const Source& source) { return sameText(source.alias, alias); });
        if (found == sources_.end()) raise(kUnknownTable, alias);
        return *found;
    }

    void addAll(const Source& source) {
        for (const Column& column : source.table->columns) {
            items_.push_back({{column.name, source.table->name, column},
                              source.alias,
                              quoted(source.alias) + L"." + quoted(column.name)});
        }
    }

    void addExpression() {
        const Expression expression = ExpressionTranslator(reader_, sources_).translate();
        Item item;
        item.sql = expression.sql;
        if (expression.column) {
            item.field = {expression.column->name, expression.source->table->name, *expression.column};
            item.alias = expression.source->alias;
        } else {
            constexpr int kFirstUnnamed = 1000;
            item.field.name = L"Expr" + std::to_wstring(kFirstUnnamed + unnamed_++);
            item.field.column.type = expression.yield == Yield::text   ? JetType::text
                                     : expression.yield == Yield::date ? JetType::date
                                                                       : JetType::real;
            keyed_ = false;
        }
        if (reader_.acceptWord(L"AS")) {
            item.field.name = reader_.expectName(kBadSelect);
            item.isNamed = true;
        }
        items_.push_back(std::move(item));
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
            std::wstring key = ExpressionTranslator(reader_, sources_).column().sql;
            if (reader_.acceptWord(L"DESC")) {
                key += L" DESC";
            } else {
                reader_.acceptWord(L"ASC");
            }
            order_.push_back(std::move(key));
        } while (reader_.acceptSymbol(L","));
    }

    /// Columns of one name from two tables are told apart by their table's name before a dot.
    void nameItems() {
        std::vector<std::wstring> names;
        for (const Item& item : items_) {
            const auto same = [&](const Item& other) { return sameText(other.field.name, item.field.name); };
            const bool qualify = !item.isNamed && std::count_if(items_.begin(), items_.end(), same) > 1;
            names.push_back(qualify ? item.alias + L"." + item.field.name : item.field.name);
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
        if (keyed_) order.insert(order.end(), keys.begin(), keys.end());
        std::wstring tail = L" FROM " + join(from) + where_;
        if (!order.empty()) tail += L" ORDER BY " + join(order);
        plan.rowsSql = (distinct_ ? L"SELECT DISTINCT " : L"SELECT ") + join(columns) + tail;
        if (keyed_) {
            plan.keysSql = L"SELECT " + join(keys) + tail;
            plan.rowSql = L"SELECT " + join(columns) + L" FROM " + join(from) + keyTest;
        }
        plan.values = reader_.values();
        return plan;
    }

    SqlReader& reader_;
    bool distinct_ = false;
    bool keyed_ = true;
    int unnamed_ = 0;
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

SelectPlan translateSelect(SqlReader& reader) {
    return SelectTranslator(reader).run();
}

SelectPlan translateSelect(std::wstring_view sql, const Schema& schema) {
    SqlReader reader(sql, schema);
    SelectPlan plan = translateSelect(reader);
    reader.expectEnd(3142);
    reader.raiseIfUnknown();
    return plan;
}

SelectPlan selectWholeTable(const Table& table) {
    const Schema schema{{table}, {}};
    return translateSelect(L"SELECT * FROM [" + table.name + L"]", schema);
}

}  // namespace standin::dao
