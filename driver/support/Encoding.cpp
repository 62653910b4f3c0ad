#include "support/Encoding.h"

#include <windows.h>

namespace zelbar {

std::string utf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    if (length == 0) return {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring wide(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    if (size == 0) return {};
    const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), length);
    return text;
}

}  // namespace zelbar
