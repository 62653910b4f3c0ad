#include "standin/outlook/server/Console.h"

#include <windows.h>

#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook {
namespace {

void print(DWORD handle, std::wstring_view text) {
    const std::string bytes = toUtf8(text) + "\n";
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
