#pragma once

#include <string>
#include <vector>

#include "standin/dao/SqlReader.h"

namespace standin::dao {

/// A table of a FROM clause under the name that the statement uses for it.
struct Source {
    std::wstring alias;
    const Table* table;
};

/// What an expression yields, as far as it can be told without running it.
enum class Yield { any, number, text };

struct Expression {
    std::wstring sql;
    Yield yield = Yield::any;
    /// Set when the expression is nothing but a column.
    const Column* column = nullptr;
    const Source* source = nullptr;
};

/// Translates expressions over the columns of `sources`. Syntax errors raise 3075, columns that no source has
/// are noted as unknown.
class ExpressionTranslator {
  public:
    ExpressionTranslator(SqlReader& reader, const std::vector<Source>& sources)
        : reader_(reader), sources_(sources) {}

    /// A whole condition or value, up to the first token that cannot belong to it.
    Expression translate();
    /// The same for what follows Where: nothing is open that a parenthesis could close.
    std::wstring condition();
    /// A column by name, optionally with its table's name before it.
    Expression column();

  private:
    Expression disjunction();
    Expression conjunction();
    Expression negation();
    Expression comparison();
    Expression joined();
    Expression sign();
    Expression primary();

    Expression like(const Expression& left);
    Expression literal();
    /// Inside a literal a name between vertical bars stands for the value of that column.
    std::wstring textWithNames(const std::wstring& text);
    /// Chr(code), for ASCII.
    Expression character();
    Expression find(const std::wstring& table, const std::wstring& name);
    void checkComparable(const Expression& left, const Expression& right) const;
    [[noreturn]] void fail(const std::wstring& message) const;

    SqlReader& reader_;
    const std::vector<Source>& sources_;
    std::size_t begin_ = 0;
    int depth_ = 0;
};

}  // namespace standin::dao
