#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace standin::dao {

enum class TokenKind {
    word,       ///< a name or a keyword
    bracketed,  ///< a name in [brackets]; never a keyword
    number,
    text,  ///< a literal in either kind of quotes, quotes removed and doubled ones single
    symbol,
    broken,  ///< a literal or a bracket that is not closed, or a character that SQL has no use for
    end
};

struct Token {
    TokenKind kind;
    std::wstring text;
    std::size_t begin;  ///< first position in the statement
    std::size_t end;    ///< position after the last
};

/// Cuts a statement up. Never fails: what cannot be read becomes a broken token. The last token is an end.
std::vector<Token> tokenize(std::wstring_view sql);

}  // namespace standin::dao
