#include "benchmark/Child.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "support/Handle.h"

namespace benchmark {

namespace {

std::wstring ownFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path().native();
}

}  // namespace

Holdings holdingsOf(void* process) {
    constexpr double kMegabyte = 1024.0 * 1024.0;
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(process, &counters, sizeof counters);
    DWORD handles = 0;
    GetProcessHandleCount(process, &handles);
    return {static_cast<double>(counters.WorkingSetSize) / kMegabyte, handles};
}

ChildRun runBeside(const std::wstring& commandLine) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const zelbar::FileHandle nowhere(CreateFileW(L"NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                 &inherited, OPEN_EXISTING, 0, nullptr));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = startup.hStdError = nowhere.get();
    PROCESS_INFORMATION process{};
    std::wstring line = L"\"" + ownFolder() + L"\\" + commandLine;
    line.insert(line.find(L".exe") + 4, L"\"");
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        throw std::runtime_error("a program could not be started");
    const zelbar::FileHandle thread(process.hThread), owner(process.hProcess);
    const ULONGLONG begun = GetTickCount64();
    ChildRun run;
    constexpr DWORD kStep = 50;
    while (WaitForSingleObject(owner.get(), kStep) == WAIT_TIMEOUT)
        run.mostMegabytes = std::max(run.mostMegabytes, holdingsOf(owner.get()).megabytes);
    run.seconds = static_cast<double>(GetTickCount64() - begun) / 1000;
    GetExitCodeProcess(owner.get(), &run.exitStatus);
    return run;
}

}  // namespace benchmark
