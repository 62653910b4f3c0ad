#include "client/Figures.h"

namespace pimcall {

std::wstring bytesText(unsigned long long bytes) {
    if (bytes < 1024) return std::to_wstring(bytes) + (bytes == 1 ? L" byte" : L" bytes");
    const wchar_t* const units[] = {L" KB", L" MB", L" GB", L" TB"};
    std::size_t unit = 0;
    unsigned long long tenths = bytes * 10 / 1024;
    while (tenths >= 10240 && unit < 3) {
        tenths /= 1024;
        ++unit;
    }
    std::wstring text = std::to_wstring(tenths / 10);
    if (tenths < 100) text += L"." + std::to_wstring(tenths % 10);
    return text + units[unit];
}

std::wstring counted(long count, const std::wstring& what) {
    return std::to_wstring(count) + L" " + what + (count == 1 ? L"" : L"s");
}

}  // namespace pimcall
