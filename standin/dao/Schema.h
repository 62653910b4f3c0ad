#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace standin::dao {

/// One stored value. Yes/No is 0 or -1, as in OLE Automation.
using Cell = std::variant<std::monostate, std::int64_t, double, std::wstring>;

/// The numbers are DAO's own.
enum class JetType : short { yesNo = 1, longInteger = 4, text = 10, memo = 12 };

bool isText(JetType type);

struct Column {
    std::wstring name;
    JetType type = JetType::text;
    int size = 0;  ///< greatest number of characters of a text; 0 elsewhere
};

struct Table {
    std::wstring name;
    std::vector<Column> columns;

    /// Position of the column, whatever the case of the name; -1 when there is none.
    int find(std::wstring_view column) const;
};

struct Index {
    std::wstring table;
    std::wstring name;
};

struct Schema {
    std::vector<Table> tables;
    std::vector<Index> indexes;

    /// Null when there is none of that name.
    const Table* find(std::wstring_view table) const;
    bool hasIndex(std::wstring_view table, std::wstring_view index) const;
};

/// The type that a word of CREATE TABLE names, in `column`; false when the word is no type.
bool typeFromSql(std::wstring_view word, Column& column);

/// How a column's type is written in the file, and back. The words carry SQLite's affinities.
std::wstring storedType(const Column& column);
Column columnFromStored(std::wstring name, std::wstring_view storedType);

/// A name as SQLite reads it.
std::wstring quoted(std::wstring_view name);

/// The names of the indexes in the file: Jet's belong to a table, SQLite's to the whole file. The second, for
/// searches by prefix, stands beside the first wherever the first column is a text.
std::wstring storedIndexName(std::wstring_view table, std::wstring_view index);
std::wstring storedPrefixIndexName(std::wstring_view table, std::wstring_view index);
bool indexFromStored(std::wstring_view table, std::wstring_view storedName, Index& index);

}  // namespace standin::dao
