#include "standin/dao/SqlTokens.h"

namespace standin::dao {
namespace {

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}
bool isNameStart(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' || c >= 0x80;
}
bool isNamePart(wchar_t c) {
    return isNameStart(c) || isDigit(c) || c == L'$';
}

class Tokenizer {
  public:
    explicit Tokenizer(std::wstring_view sql) : sql_(sql) {}

    std::vector<Token> run() {
        while (at_ < sql_.size()) {
            const std::size_t begin = at_;
            const wchar_t c = sql_[at_];
            if (isBlank(c)) {
                ++at_;
            } else if (c == L'"' || c == L'\'') {
                quoted(c);
            } else if (c == L'[') {
                bracketed();
            } else if (isDigit(c) || (c == L'.' && isDigit(peek(1)))) {
                number();
            } else if (isNameStart(c)) {
                while (isNamePart(peek(0))) ++at_;
                add(TokenKind::word, begin, std::wstring(sql_.substr(begin, at_ - begin)));
            } else {
                symbol();
            }
        }
        add(TokenKind::end, at_, {});
        return std::move(tokens_);
    }

  private:
    wchar_t peek(std::size_t ahead) const { return at_ + ahead < sql_.size() ? sql_[at_ + ahead] : L'\0'; }

    void add(TokenKind kind, std::size_t begin, std::wstring text) {
        tokens_.push_back({kind, std::move(text), begin, at_});
    }

    void quoted(wchar_t quote) {
        const std::size_t begin = at_++;
        std::wstring text;
        while (at_ < sql_.size()) {
            const wchar_t c = sql_[at_++];
            if (c != quote) {
                text += c;
            } else if (peek(0) == quote) {
                text += quote;
                ++at_;
            } else {
                return add(TokenKind::text, begin, std::move(text));
            }
        }
        add(TokenKind::broken, begin, std::move(text));
    }

    void bracketed() {
        const std::size_t begin = at_;
        const std::size_t end = sql_.find(L']', begin + 1);
        at_ = end == std::wstring_view::npos ? sql_.size() : end + 1;
        const bool closed = end != std::wstring_view::npos && end > begin + 1;
        add(closed ? TokenKind::bracketed : TokenKind::broken, begin,
            closed ? std::wstring(sql_.substr(begin + 1, end - begin - 1)) : std::wstring());
    }

    void number() {
        const std::size_t begin = at_;
        while (isDigit(peek(0))) ++at_;
        if (peek(0) == L'.') ++at_;
        while (isDigit(peek(0))) ++at_;
        const bool isSigned = peek(1) == L'+' || peek(1) == L'-';
        if ((peek(0) == L'e' || peek(0) == L'E') && isDigit(peek(isSigned ? 2 : 1))) {
            at_ += isSigned ? 2 : 1;
            while (isDigit(peek(0))) ++at_;
        }
        add(TokenKind::number, begin, std::wstring(sql_.substr(begin, at_ - begin)));
    }

    void symbol() {
        constexpr std::wstring_view kSymbols = L"(),.*=<>+-/&;!";
        const std::size_t begin = at_;
        const wchar_t c = sql_[at_++];
        std::wstring text(1, c);
        if ((c == L'<' && (peek(0) == L'=' || peek(0) == L'>')) || (c == L'>' && peek(0) == L'=')) {
            text += sql_[at_++];
        }
        const bool known = kSymbols.find(c) != std::wstring_view::npos;
        add(known ? TokenKind::symbol : TokenKind::broken, begin, std::move(text));
    }

    std::wstring_view sql_;
    std::size_t at_ = 0;
    std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> tokenize(std::wstring_view sql) {
    return Tokenizer(sql).run();
}

}  // namespace standin::dao
