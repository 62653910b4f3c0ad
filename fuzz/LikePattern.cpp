// Search texts in Jet's SQL: an escaped text matches itself and nothing else, its asterisks apart, and a
// quoted one ends where it is meant to end.

#include "search/LikePattern.h"

#include <vector>

#include "fuzz/Input.h"

namespace {

wchar_t folded(wchar_t c) {
    return c >= L'A' && c <= L'Z' ? static_cast<wchar_t>(c - L'A' + L'a') : c;
}

bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Whether a list such as "[a-z#]" or "[!x]" has the character.
bool listHas(std::wstring_view list, wchar_t c) {
    list = list.substr(1, list.size() - 2);
    const bool negated = list.size() > 1 && list.front() == L'!';
    if (negated) list.remove_prefix(1);
    bool found = false;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const bool isRange = i + 2 < list.size() && list[i + 1] == L'-';
        const wchar_t last = isRange ? list[i + 2] : list[i];
        found = found || (folded(list[i]) <= folded(c) && folded(c) <= folded(last));
        if (isRange) i += 2;
    }
    return found != negated;
}

using Pieces = std::vector<std::wstring_view>;

/// A pattern of Jet's Like, taken apart: lists, and single characters with or without a meaning.
Pieces piecesOf(std::wstring_view pattern) {
    Pieces result;
    while (!pattern.empty()) {
        std::size_t length = 1;
        if (pattern.front() == L'[') {
            length = pattern.find(L']', 1) + 1;
            FUZZ_EXPECT(length != 0);
        }
        result.push_back(pattern.substr(0, length));
        pattern.remove_prefix(length);
    }
    return result;
}

bool likeOne(std::wstring_view piece, wchar_t c) {
    if (piece.size() > 1) return listHas(piece, c);
    return piece == L"?" || (piece == L"#" ? isDigit(c) : folded(piece.front()) == folded(c));
}

bool sameOne(std::wstring_view piece, wchar_t c) {
    return folded(piece.front()) == folded(c);
}

/// The whole text against pieces of which "*" takes any run of characters.
bool matches(std::wstring_view text, const Pieces& pieces, bool (*matchesOne)(std::wstring_view, wchar_t)) {
    std::vector<bool> reached(pieces.size() + 1);  // whether the first pieces take all of the text so far
    reached[0] = true;
    const auto passAsterisks = [&] {
        for (std::size_t i = 0; i < pieces.size(); ++i)
            if (pieces[i] == L"*" && reached[i]) reached[i + 1] = true;
    };
    passAsterisks();
    for (const wchar_t c : text) {
        std::vector<bool> next(reached.size());
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (pieces[i] == L"*")
                next[i + 1] = reached[i + 1];
            else if (reached[i] && matchesOne(pieces[i], c))
                next[i + 1] = true;
        }
        reached = next;
        passAsterisks();
    }
    return reached.back();
}

Pieces charactersOf(std::wstring_view text) {
    Pieces result;
    for (std::size_t i = 0; i < text.size(); ++i) result.push_back(text.substr(i, 1));
    return result;
}

/// What the SQL reader takes a literal for, with the bars that are put in by their code; the rest of the
/// statement stays in `sql`.
std::wstring readLiteral(std::wstring_view& sql) {
    constexpr std::wstring_view kBar = L" & Chr(124) & \"";
    FUZZ_EXPECT(!sql.empty() && sql.front() == L'"');
    std::wstring result;
    for (sql.remove_prefix(1); !sql.empty(); sql.remove_prefix(1)) {
        FUZZ_EXPECT(sql.front() != L'|');
        if (sql.front() == L'"') {
            sql.remove_prefix(1);
            if (sql.starts_with(kBar)) {
                sql.remove_prefix(kBar.size() - 1);
                result += L'|';
                continue;
            }
            if (sql.empty() || sql.front() != L'"') return result;
        }
        result += sql.front();
    }
    FUZZ_EXPECT(!"the literal does not end");
    return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::wstring_view kAlphabet = L"*#[]?!-\"'|aAzZ019 ";
    fuzz::Input input(data, size);
    const std::wstring wanted = input.text(kAlphabet);
    const std::wstring other = input.text(kAlphabet);
    const std::wstring pattern = zelbar::EscapeLikePattern(wanted);
    FUZZ_EXPECT(matches(wanted, piecesOf(pattern), likeOne));
    FUZZ_EXPECT(matches(other, piecesOf(pattern), likeOne) == matches(other, charactersOf(wanted), sameOne));

    const std::wstring statement = zelbar::quotedLiteral(pattern) + L" Order By Name";
    std::wstring_view rest = statement;
    FUZZ_EXPECT(readLiteral(rest) == pattern);
    FUZZ_EXPECT(rest == L" Order By Name");
    return 0;
}
