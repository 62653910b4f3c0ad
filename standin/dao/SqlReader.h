#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "standin/dao/Schema.h"
#include "standin/dao/SqlTokens.h"

namespace standin::dao {

/// Walks through a Jet statement while it is translated, and gathers what the whole statement needs: the
/// values of its literals and the names that stand for nothing known.
class SqlReader {
  public:
    SqlReader(std::wstring_view sql, const Schema& schema);

    const Schema& schema() const { return schema_; }

    const Token& peek(std::size_t ahead = 0) const;
    Token next();
    bool atEnd() const;
    /// True when the next token is that keyword (any case) or that symbol.
    bool isWord(std::wstring_view word, std::size_t ahead = 0) const;
    bool isSymbol(std::wstring_view symbol, std::size_t ahead = 0) const;
    bool acceptWord(std::wstring_view word);
    bool acceptSymbol(std::wstring_view symbol);
    /// Take what must stand here, or raise `error`.
    void expectWord(std::wstring_view word, int error);
    void expectSymbol(std::wstring_view symbol, int error);
    /// A name, in brackets or not; reserved words only in brackets.
    std::wstring expectName(int error);
    /// Raises unless nothing but a semicolon is left.
    void expectEnd(int error);

    /// Puts a value into the statement; returns the text that stands for it.
    std::wstring bind(Cell value);
    const std::vector<Cell>& values() const { return values_; }

    /// Notes a name that no table knows, which makes it a parameter without a value.
    void addUnknown(std::wstring_view name);
    void raiseIfUnknown() const;

    /// Raises 3075 about the expression that began at that token.
    [[noreturn]] void raiseInExpression(const std::wstring& message, std::size_t begin) const;
    std::size_t position() const { return at_; }
    /// Goes back, or on, to where position() was once.
    void moveTo(std::size_t position) { at_ = position; }

  private:
    const Schema& schema_;
    std::wstring_view sql_;
    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    std::vector<Cell> values_;
    std::set<std::wstring> unknown_;
};

/// A word that can be a name only in brackets.
bool isReserved(std::wstring_view word);

}  // namespace standin::dao
