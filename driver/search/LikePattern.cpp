#include "search/LikePattern.h"

namespace zelbar {

std::wstring EscapeLikePattern(std::wstring_view text) {
    std::wstring result;
    result.reserve(text.size());
    for (const wchar_t c : text) {
        if (c == L'#' || c == L'[' || c == L'?')
            (result += L'[').append(1, c) += L']';
        else
            result += c;
    }
    return result;
}

std::wstring quotedLiteral(std::wstring_view text) {
    std::wstring result = L"\"";
    for (const wchar_t c : text) {
        if (c == L'"')
            result += L"\"\"";
        else if (c == L'|')
            result += L"\" & Chr(124) & \"";
        else
            result += c;
    }
    return result += L'"';
}

}  // namespace zelbar
