#include "client/Text.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>

namespace pimcall {

std::string utf8(std::wstring_view text) {
    if (text.empty()) return {};
    const int units = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    if (WideCharToMultiByte(CP_UTF8, 0, text.data(), units, bytes.data(), size, nullptr, nullptr) == 0)
        throw std::runtime_error("text without bytes");
    return bytes;
}

bool isControl(wchar_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

std::wstring oneLine(std::wstring_view text) {
    std::wstring result(text);
    std::replace_if(result.begin(), result.end(), isControl, L' ');
    return result;
}

}  // namespace pimcall
