#include "support/ProcessName.h"

#include <windows.h>

#include "support/Handle.h"
#include "support/Text.h"

namespace zelbar {
namespace {

std::wstring nameOf(HANDLE process, DWORD number) {
    FILETIME begun{}, unused{};
    GetProcessTimes(process, &begun, &unused, &unused, &unused);
    return std::to_wstring(number) + L" " + hexadecimal(begun.dwHighDateTime) + L" " +
           hexadecimal(begun.dwLowDateTime);
}

}  // namespace

std::wstring ownProcessName() {
    return nameOf(GetCurrentProcess(), GetCurrentProcessId());
}

bool isProcessRunning(const std::wstring& name) {
    const auto number = static_cast<DWORD>(leadingInteger(name));
    const FileHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number));
    // One that may not be opened is another user's, who has got the number meanwhile.
    return process.get() && nameOf(process.get(), number) == name;
}

}  // namespace zelbar
