#include "standin/dao/Schema.h"

#include <algorithm>
#include <array>

#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

struct TypeWord {
    const wchar_t* word;
    JetType type;
};

constexpr std::array kTypeWords{
    TypeWord{L"TEXT", JetType::text},
    TypeWord{L"MEMO", JetType::memo},
    TypeWord{L"LONG", JetType::longInteger},
    TypeWord{L"YESNO", JetType::yesNo},
};

constexpr std::array kStoredTypes{
    TypeWord{L"YESNO_INT", JetType::yesNo},
    TypeWord{L"LONG_INT", JetType::longInteger},
    TypeWord{L"MEMO_TEXT", JetType::memo},
};

constexpr std::wstring_view kPrefixIndexMark = L".prefix";
constexpr int kDefaultTextSize = 255;

}  // namespace

bool isText(JetType type) {
    return type == JetType::text || type == JetType::memo;
}

int Table::find(std::wstring_view column) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& c) { return sameText(c.name, column); });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

const Table* Schema::find(std::wstring_view table) const {
    const auto found =
        std::find_if(tables.begin(), tables.end(), [&](const Table& t) { return sameText(t.name, table); });
    return found == tables.end() ? nullptr : &*found;
}

bool Schema::hasIndex(std::wstring_view table, std::wstring_view index) const {
    return std::any_of(indexes.begin(), indexes.end(),
                       [&](const Index& i) { return sameText(i.table, table) && sameText(i.name, index); });
}

bool typeFromSql(std::wstring_view word, Column& column) {
    const auto found = std::find_if(kTypeWords.begin(), kTypeWords.end(),
                                    [&](const TypeWord& w) { return sameText(w.word, word); });
    if (found == kTypeWords.end()) return false;
    column.type = found->type;
    column.size = found->type == JetType::text ? kDefaultTextSize : 0;
    return true;
}

std::wstring storedType(const Column& column) {
    if (column.type == JetType::text) return L"TEXT(" + std::to_wstring(column.size) + L")";
    const auto found = std::find_if(kStoredTypes.begin(), kStoredTypes.end(),
                                    [&](const TypeWord& w) { return w.type == column.type; });
    return found->word;
}

Column columnFromStored(std::wstring name, std::wstring_view storedType) {
    Column column{std::move(name)};
    const auto found = std::find_if(kStoredTypes.begin(), kStoredTypes.end(),
                                    [&](const TypeWord& w) { return storedType == w.word; });
    if (found != kStoredTypes.end()) {
        column.type = found->type;
        return column;
    }
    constexpr std::size_t kBeforeSize = 5;  // "TEXT("
    column.size = storedType.size() > kBeforeSize
                      ? static_cast<int>(std::wcstol(storedType.data() + kBeforeSize, nullptr, 10))
                      : kDefaultTextSize;
    return column;
}

std::wstring quoted(std::wstring_view name) {
    std::wstring text = L"\"";
    for (const wchar_t c : name) {
        if (c == L'"') text += L'"';
        text += c;
    }
    return text + L"\"";
}

std::wstring storedIndexName(std::wstring_view table, std::wstring_view index) {
    return std::wstring(table) + L"." + std::wstring(index);
}

std::wstring storedPrefixIndexName(std::wstring_view table, std::wstring_view index) {
    return storedIndexName(table, index) + std::wstring(kPrefixIndexMark);
}

bool indexFromStored(std::wstring_view table, std::wstring_view storedName, Index& index) {
    if (storedName.size() <= table.size() + 1 || storedName.ends_with(kPrefixIndexMark)) return false;
    index = {std::wstring(table), std::wstring(storedName.substr(table.size() + 1))};
    return true;
}

}  // namespace standin::dao
