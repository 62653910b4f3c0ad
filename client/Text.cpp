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

bool steersScreen(wchar_t unit) {
    const auto within = [unit](wchar_t first, wchar_t last) { return unit >= first && unit <= last; };
    return within(0, 0x1F) || within(0x7F, 0x9F) || unit == 0x61C || within(0x200E, 0x200F) ||
           within(0x2028, 0x202E) || within(0x2066, 0x2069);
}

std::wstring oneLine(std::wstring_view text) {
    std::wstring result(text);
    std::replace_if(result.begin(), result.end(), steersScreen, L' ');
    return result;
}

}  // namespace pimcall
