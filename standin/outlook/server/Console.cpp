#include "standin/outlook/server/Console.h"

#include <windows.h>

#include <algorithm>

#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook {
namespace {

// What somebody else wrote into an address book must not steer the terminal: neither by control characters
// nor by marks that turn the direction of writing.
bool isHarmless(wchar_t unit) {
    const bool isControl = unit < L' ' || (unit >= 0x7F && unit <= 0x9F);
    const bool isDirection = unit == 0x061C || unit == 0x200E || unit == 0x200F ||
                             (unit >= 0x2028 && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069);
    return !isControl && !isDirection;
}

void print(DWORD handle, std::wstring_view text) {
    std::wstring shown(text);
    std::ranges::replace_if(
        shown, [](wchar_t unit) { return !isHarmless(unit); }, L'\xFFFD');
    const std::string bytes = toUtf8(shown) + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(handle), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

void printLine(std::wstring_view text) {
    print(STD_OUTPUT_HANDLE, text);
}

void printError(std::wstring_view text) {
    print(STD_ERROR_HANDLE, text);
}

void releaseStandardHandles() {
    for (const DWORD name : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
        const HANDLE handle = GetStdHandle(name);
        SetStdHandle(name, nullptr);
        if (handle && handle != INVALID_HANDLE_VALUE) CloseHandle(handle);
    }
}

}  // namespace standin::outlook
