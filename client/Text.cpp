#include "client/Text.h"

#include <algorithm>

namespace pimcall {

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
