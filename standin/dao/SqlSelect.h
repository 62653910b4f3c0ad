#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "standin/dao/Schema.h"
#include "standin/dao/SqlReader.h"

namespace standin::dao {

/// A column of a query's result.
struct ResultField {
    std::wstring name;
    std::wstring table;
    Column column;
};

/// A Select statement in SQLite's words.
struct SelectPlan {
    std::vector<ResultField> fields;
    std::vector<std::wstring> tables;
    std::vector<Cell> values;  ///< for rowsSql and keysSql
    std::wstring rowsSql;      ///< all rows with their fields
    std::wstring keysSql;      ///< all rows as row numbers, one for each table
    std::wstring rowSql;       ///< the fields of the row with the row numbers ?1, ?2, ...
};

bool isSelect(std::wstring_view sql);
SelectPlan translateSelect(std::wstring_view sql, const Schema& schema);
SelectPlan selectWholeTable(const Table& table);

}  // namespace standin::dao
