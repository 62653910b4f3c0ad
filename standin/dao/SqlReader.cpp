#include "standin/dao/SqlReader.h"

#include <algorithm>
#include <array>

#include "standin/dao/DaoError.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

constexpr std::array kReserved{
    L"ADD",    L"ALL",    L"ALTER", L"AND",      L"AS",     L"ASC",    L"BETWEEN", L"BY",     L"COLUMN",
    L"CREATE", L"DELETE", L"DESC",  L"DISTINCT", L"DROP",   L"EXISTS", L"FALSE",   L"FROM",   L"GROUP",
    L"HAVING", L"IN",     L"INDEX", L"INNER",    L"INSERT", L"INTO",   L"IS",      L"JOIN",   L"LEFT",
    L"LIKE",   L"NOT",    L"NULL",  L"ON",       L"OR",     L"ORDER",  L"PRIMARY", L"RIGHT",  L"SELECT",
    L"SET",    L"TABLE",  L"TRUE",  L"UNION",    L"UNIQUE", L"UPDATE", L"VALUE",   L"VALUES", L"WHERE",
};

}  // namespace

bool isReserved(std::wstring_view word) {
    return std::any_of(kReserved.begin(), kReserved.end(),
                       [&](const wchar_t* reserved) { return sameText(reserved, word); });
}

SqlReader::SqlReader(std::wstring_view sql, const Schema& schema)
    : schema_(schema), sql_(sql), tokens_(tokenize(sql)) {}

const Token& SqlReader::peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

Token SqlReader::next() {
    const Token token = peek();
    if (at_ + 1 < tokens_.size()) ++at_;
    return token;
}

bool SqlReader::atEnd() const {
    return peek().kind == TokenKind::end;
}

bool SqlReader::isWord(std::wstring_view word, std::size_t ahead) const {
    return peek(ahead).kind == TokenKind::word && sameText(peek(ahead).text, word);
}

bool SqlReader::isSymbol(std::wstring_view symbol, std::size_t ahead) const {
    return peek(ahead).kind == TokenKind::symbol && peek(ahead).text == symbol;
}

bool SqlReader::acceptWord(std::wstring_view word) {
    if (!isWord(word)) return false;
    next();
    return true;
}

bool SqlReader::acceptSymbol(std::wstring_view symbol) {
    if (!isSymbol(symbol)) return false;
    next();
    return true;
}

void SqlReader::expectWord(std::wstring_view word, int error) {
    if (!acceptWord(word)) raise(error);
}

void SqlReader::expectSymbol(std::wstring_view symbol, int error) {
    if (!acceptSymbol(symbol)) raise(error);
}

std::wstring SqlReader::expectName(int error) {
    const Token& token = peek();
    const bool isName =
        token.kind == TokenKind::bracketed || (token.kind == TokenKind::word && !isReserved(token.text));
    if (!isName) raise(error);
    return next().text;
}

void SqlReader::expectEnd(int error) {
    acceptSymbol(L";");
    if (!atEnd()) raise(error);
}

std::wstring SqlReader::bind(Cell value) {
    values_.push_back(std::move(value));
    return L"?" + std::to_wstring(values_.size());
}

void SqlReader::addUnknown(std::wstring_view name) {
    unknown_.insert(foldCase(name));
}

void SqlReader::raiseIfUnknown() const {
    if (!unknown_.empty()) raise(3061, std::to_wstring(unknown_.size()));
}

void SqlReader::raiseInExpression(const std::wstring& message, std::size_t begin) const {
    std::size_t last = begin;
    const auto isOrder = [this](std::size_t i) {
        return tokens_[i].kind == TokenKind::word && sameText(tokens_[i].text, L"ORDER");
    };
    while (tokens_[last].kind != TokenKind::end && !isOrder(last)) ++last;
    const bool brokenText = std::any_of(tokens_.begin(), tokens_.end(), [&](const Token& token) {
        return token.kind == TokenKind::broken && (sql_[token.begin] == L'"' || sql_[token.begin] == L'\'');
    });
    const std::size_t from = tokens_[begin].begin;
    const std::size_t to = last > begin ? tokens_[last - 1].end : from;
    raise(3075, brokenText ? L"Syntax error in string" : message, std::wstring(sql_.substr(from, to - from)));
}

}  // namespace standin::dao
