#include "standin/dao/SqlExpression.h"

#include <algorithm>
#include <array>
#include <cwchar>

#include "standin/dao/DaoError.h"
#include "standin/dao/Like.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

constexpr const wchar_t* kMissingOperator = L"Syntax error (missing operator)";
constexpr const wchar_t* kSyntaxError = L"Syntax error";
constexpr int kGreatestDepth = 100;
constexpr long kLastAscii = 127;
constexpr wchar_t kBar = L'|';
constexpr std::size_t kNowhere = std::wstring::npos;

Yield yieldOf(JetType type) {
    return isText(type) ? Yield::text : Yield::number;
}

}  // namespace

Expression ExpressionTranslator::translate() {
    begin_ = reader_.position();
    Expression whole = disjunction();
    const Token& rest = reader_.peek();
    // What follows an expression is a keyword, a comma, a parenthesis or the end; anything else lacks an
    // operator.
    const bool isValue = rest.kind == TokenKind::number || rest.kind == TokenKind::text ||
                         rest.kind == TokenKind::bracketed || rest.kind == TokenKind::broken ||
                         (rest.kind == TokenKind::word && !isReserved(rest.text));
    if (isValue) fail(kMissingOperator);
    return whole;
}

std::wstring ExpressionTranslator::condition() {
    const Expression whole = translate();
    if (reader_.isSymbol(L")")) fail(L"Extra )");
    return whole.sql;
}

void ExpressionTranslator::fail(const std::wstring& message) const {
    reader_.raiseInExpression(message, begin_);
}

Expression ExpressionTranslator::disjunction() {
    Expression left = conjunction();
    while (reader_.acceptWord(L"OR")) {
        left = {L"(" + left.sql + L" OR " + conjunction().sql + L")", Yield::number};
    }
    return left;
}

Expression ExpressionTranslator::conjunction() {
    Expression left = negation();
    while (reader_.acceptWord(L"AND")) {
        left = {L"(" + left.sql + L" AND " + negation().sql + L")", Yield::number};
    }
    return left;
}

Expression ExpressionTranslator::negation() {
    if (++depth_ > kGreatestDepth) fail(L"Expression too complex");
    Expression result = reader_.acceptWord(L"NOT")
                            ? Expression{L"(NOT " + negation().sql + L")", Yield::number}
                            : comparison();
    --depth_;
    return result;
}

Expression ExpressionTranslator::comparison() {
    Expression left = joined();
    for (;;) {
        static constexpr std::array kOperators{L"=", L"<>", L"<=", L">=", L"<", L">"};
        const auto isNext = [this](const wchar_t* symbol) { return reader_.isSymbol(symbol); };
        if (reader_.acceptWord(L"LIKE")) {
            left = like(left);
        } else if (std::any_of(kOperators.begin(), kOperators.end(), isNext)) {
            const std::wstring symbol = reader_.next().text;
            const Expression right = joined();
            checkComparable(left, right);
            left = {L"(" + left.sql + L" " + symbol + L" " + right.sql + L")", Yield::number};
        } else {
            return left;
        }
    }
}

Expression ExpressionTranslator::like(const Expression& left) {
    const Token pattern = reader_.peek();
    const bool isLiteral =
        pattern.kind == TokenKind::text && !reader_.isSymbol(L"&", 1) && pattern.text.find(kBar) == kNowhere;
    const Expression right = joined();
    const std::wstring match = L"jet_like(" + right.sql + L", " + left.sql + L")";
    if (!isLiteral) return {match, Yield::number};

    bool readable = true;
    std::wstring prefix;
    bool exact = false;
    try {
        const LikePattern compiled(pattern.text);
        prefix = compiled.prefix();
        exact = compiled.isExact();
    } catch (const DaoError& error) {
        readable = false;
        prefix = error.text;
    }
    if (!readable) fail(prefix);
    const bool canUseIndex = left.column && isText(left.column->type) && (exact || !prefix.empty());
    if (!canUseIndex) return {match, Yield::number};

    const std::wstring key = left.sql + L" COLLATE JET_PREFIX";
    std::wstring condition;
    if (exact) {
        condition = L"(" + key + L" = " + reader_.bind(prefix) + L")";
    } else {
        condition = L"(" + key + L" >= " + reader_.bind(prefix);
        const std::wstring end = endOfPrefix(prefix);
        if (!end.empty()) condition += L" AND " + key + L" < " + reader_.bind(end);
        condition += L" AND " + match + L")";
    }
    return {condition, Yield::number};
}

Expression ExpressionTranslator::joined() {
    Expression left = sign();
    while (reader_.acceptSymbol(L"&")) {
        // & takes Null for an empty text.
        left = {L"(ifnull(" + left.sql + L", '') || ifnull(" + sign().sql + L", ''))", Yield::text};
    }
    return left;
}

Expression ExpressionTranslator::sign() {
    if (reader_.acceptSymbol(L"-")) return {L"(- " + primary().sql + L")", Yield::number};
    return primary();
}

Expression ExpressionTranslator::primary() {
    if (reader_.acceptSymbol(L"(")) {
        const Expression inner = disjunction();
        if (!reader_.acceptSymbol(L")")) fail(kMissingOperator);
        return {L"(" + inner.sql + L")", inner.yield};
    }
    const Token& token = reader_.peek();
    const bool isName =
        token.kind == TokenKind::bracketed || (token.kind == TokenKind::word && !isReserved(token.text));
    if (!isName) return literal();
    if (!reader_.isSymbol(L"(", 1)) return column();
    if (!sameText(token.text, L"CHR")) raise(3085, token.text);
    return character();
}

Expression ExpressionTranslator::literal() {
    const Token token = reader_.peek();
    const auto isWord = [&](const wchar_t* word) {
        return token.kind == TokenKind::word && sameText(token.text, word);
    };
    if (token.kind == TokenKind::number) {
        reader_.next();
        const double number = std::wcstod(token.text.c_str(), nullptr);
        const bool whole = token.text.find_first_of(L".eE") == std::wstring::npos && number < 9e15;
        return {reader_.bind(whole ? Cell(static_cast<std::int64_t>(number)) : Cell(number)), Yield::number};
    }
    if (token.kind == TokenKind::text) {
        reader_.next();
        return {textWithNames(token.text), Yield::text};
    }
    if (isWord(L"NULL") || isWord(L"TRUE") || isWord(L"FALSE")) {
        reader_.next();
        if (isWord(L"NULL")) return {L"NULL", Yield::any};
        return {isWord(L"TRUE") ? L"-1" : L"0", Yield::number};
    }
    fail(token.kind == TokenKind::end || token.kind == TokenKind::word ? kMissingOperator : kSyntaxError);
}

std::wstring ExpressionTranslator::textWithNames(const std::wstring& text) {
    std::wstring sql;
    std::size_t begin = 0;
    for (;;) {
        const std::size_t bar = text.find(kBar, begin);
        sql += reader_.bind(text.substr(begin, bar - begin));
        if (bar == kNowhere) return L"(" + sql + L")";
        const std::size_t close = text.find(kBar, bar + 1);
        if (close == kNowhere || close == bar + 1) fail(L"Invalid use of vertical bars");
        sql += L" || ifnull(" + find({}, text.substr(bar + 1, close - bar - 1)).sql + L", '') || ";
        begin = close + 1;
    }
}

Expression ExpressionTranslator::character() {
    reader_.next();
    reader_.next();
    const Token code = reader_.next();
    const long number = code.kind == TokenKind::number ? std::wcstol(code.text.c_str(), nullptr, 10) : -1;
    if (number < 0 || number > kLastAscii) fail(L"Invalid procedure call");
    if (!reader_.acceptSymbol(L")")) fail(kMissingOperator);
    return {reader_.bind(std::wstring(1, static_cast<wchar_t>(number))), Yield::text};
}

Expression ExpressionTranslator::column() {
    const std::wstring first = reader_.next().text;
    const bool qualified = reader_.isSymbol(L".") || reader_.isSymbol(L"!");
    if (!qualified) return find({}, first);
    reader_.next();
    const Token second = reader_.next();
    if (second.kind != TokenKind::word && second.kind != TokenKind::bracketed) fail(kSyntaxError);
    return find(first, second.text);
}

Expression ExpressionTranslator::find(const std::wstring& table, const std::wstring& name) {
    Expression found;
    for (const Source& source : sources_) {
        if (!table.empty() && !sameText(source.alias, table)) continue;
        const int position = source.table->find(name);
        if (position < 0) continue;
        if (found.column) raise(3079, name);
        found.column = &source.table->columns[static_cast<std::size_t>(position)];
        found.source = &source;
        found.sql = quoted(source.alias) + L"." + quoted(found.column->name);
        found.yield = yieldOf(found.column->type);
    }
    if (found.column) return found;
    reader_.addUnknown(table.empty() ? name : table + L"." + name);
    return {L"NULL", Yield::any};
}

void ExpressionTranslator::checkComparable(const Expression& left, const Expression& right) const {
    const bool oneIsText = (left.yield == Yield::text) != (right.yield == Yield::text);
    if (oneIsText && left.yield != Yield::any && right.yield != Yield::any) raise(3464);
}

}  // namespace standin::dao
