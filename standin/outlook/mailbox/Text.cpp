#include "standin/outlook/mailbox/Text.h"

#include <windows.h>

namespace standin::outlook {

std::string toUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    return fromCodePage(bytes, CP_UTF8);
}

std::wstring fromCodePage(std::string_view bytes, unsigned codePage) {
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), size);
    return text;
}

bool sameText(std::wstring_view left, std::wstring_view right) {
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

std::wstring trimmed(std::wstring_view text) {
    constexpr std::wstring_view blanks = L" \t\r\n";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::wstring_view::npos) return L"";
    return std::wstring(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

}  // namespace standin::outlook
