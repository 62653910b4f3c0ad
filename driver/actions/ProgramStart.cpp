#include "actions/ProgramStart.h"

#include <shellapi.h>

#include "support/Handle.h"

namespace zelbar {

namespace {

struct ProcessTraits {
    using Type = HANDLE;
    static Type empty() noexcept { return nullptr; }
    static void close(Type handle) noexcept { CloseHandle(handle); }
};
using ProcessHandle = Handle<ProcessTraits>;

DWORD startProcess(std::wstring commandLine) {
    STARTUPINFOW how{};
    how.cb = sizeof how;
    how.dwFlags = STARTF_USESHOWWINDOW;
    how.wShowWindow = SW_SHOWNORMAL;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how,
                        &started))
        return GetLastError();
    const ProcessHandle process(started.hProcess);
    const ProcessHandle thread(started.hThread);
    return ERROR_SUCCESS;
}

/// A file at the start of a command line, and what follows it.
struct FileAndParameters {
    std::wstring file;
    std::wstring parameters;
};

bool isFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

/// The line split behind its quoted start or, without quotes, behind the shortest start that is a file, as
/// programs are looked for as well. No file when there is none.
FileAndParameters splitAtFile(const std::wstring& line) {
    if (line.starts_with(L'"')) {
        const size_t quote = line.find(L'"', 1);
        const std::wstring file = line.substr(1, quote - 1);
        if (!isFile(file)) return {};
        return {file, quote == std::wstring::npos ? L"" : line.substr(quote + 1)};
    }
    for (size_t blank = line.find(L' ');; blank = line.find(L' ', blank + 1)) {
        if (isFile(line.substr(0, blank)))
            return {line.substr(0, blank), blank == std::wstring::npos ? L"" : line.substr(blank + 1)};
        if (blank == std::wstring::npos) return {};
    }
}

DWORD openByShell(const FileAndParameters& what) {
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    order.fMask = SEE_MASK_FLAG_NO_UI;
    order.lpFile = what.file.c_str();
    order.lpParameters = what.parameters.empty() ? nullptr : what.parameters.c_str();
    order.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&order) ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

DWORD startProgram(const std::wstring& commandLine) {
    const DWORD error = startProcess(commandLine);
    if (error == ERROR_SUCCESS) return error;
    const FileAndParameters what = splitAtFile(commandLine);
    return what.file.empty() ? error : openByShell(what);
}

}  // namespace zelbar
