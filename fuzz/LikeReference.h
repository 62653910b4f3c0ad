#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

#include "fuzz/Input.h"

/// What a pattern of Jet's Like means, spelt out slowly: the judge of those that write or match patterns.
namespace fuzz {

inline wchar_t folded(wchar_t c) {
    return lowerCase(c);
}

inline bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

/// Whether a list such as "[a-z#]" or "[!x]" has the character.
inline bool listHas(std::wstring_view list, wchar_t c) {
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

/// A pattern taken apart: lists, and single characters with or without a meaning. Every list must be closed.
inline Pieces piecesOf(std::wstring_view pattern) {
    Pieces result;
    while (!pattern.empty()) {
        std::size_t length = 1;
        if (pattern.front() == L'[') {
            length = pattern.find(L']', 1) + 1;
            FUZZ_EXPECT(length != 0);
        }
        // An empty list stands for nothing.
        if (length != 2) result.push_back(pattern.substr(0, length));
        pattern.remove_prefix(length);
    }
    return result;
}

inline bool likeOne(std::wstring_view piece, wchar_t c) {
    if (piece.size() > 1) return listHas(piece, c);
    return piece == L"?" || (piece == L"#" ? isDigit(c) : folded(piece.front()) == folded(c));
}

/// The whole text against pieces of which "*" takes any run of characters.
inline bool matches(std::wstring_view text, const Pieces& pieces,
                    bool (*matchesOne)(std::wstring_view, wchar_t)) {
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

}  // namespace fuzz
