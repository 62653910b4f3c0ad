// Search texts in Jet's SQL: an escaped text matches itself and nothing else, its asterisks apart, and a
// quoted one ends where it is meant to end.

#include "search/LikePattern.h"

#include "fuzz/LikeReference.h"

namespace {

using namespace fuzz;

bool sameOne(std::wstring_view piece, wchar_t c) {
    return folded(piece.front()) == folded(c);
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
    Input input(data, size);
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
