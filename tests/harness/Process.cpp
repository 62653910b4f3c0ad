#include "tests/harness/Process.h"

#include <gtest/gtest.h>

#include "driver/support/Handle.h"
#include "module/OwnModule.h"
#include "tests/harness/Files.h"
#include "tests/harness/TemporaryFolder.h"

namespace harness {

namespace {

constexpr DWORD kLongestMilliseconds = 60'000;

/// A pipe would stay open until the last server that COM started has ended; a file does not mind.
zelbar::FileHandle inheritableFile(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherit{sizeof(inherit), nullptr, TRUE};
    return zelbar::FileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          &inherit, CREATE_ALWAYS, 0, nullptr));
}

DWORD runInto(std::wstring line, HANDLE out, HANDLE error) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = out;
    startup.hStdError = error;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started)) {
        ADD_FAILURE() << "does not start: error " << GetLastError();
        return STILL_ACTIVE;
    }
    const zelbar::FileHandle process(started.hProcess);
    const zelbar::FileHandle thread(started.hThread);
    if (WaitForSingleObject(process.get(), kLongestMilliseconds) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "does not end";
        TerminateProcess(process.get(), STILL_ACTIVE);
    }
    DWORD exitCode = STILL_ACTIVE;
    GetExitCodeProcess(process.get(), &exitCode);
    return exitCode;
}

}  // namespace

std::wstring programFolder() {
    const std::wstring own = zelbar::modulePath();
    return own.substr(0, own.rfind(L'\\'));
}

Ended run(const std::wstring& commandLine) {
    const TemporaryFolder folder;
    Ended ended;
    {
        const auto out = inheritableFile(folder.file(L"out"));
        const auto error = inheritableFile(folder.file(L"error"));
        ended.exitCode = runInto(commandLine, out.get(), error.get());
    }
    ended.out = readFile(folder.file(L"out"));
    ended.error = readFile(folder.file(L"error"));
    return ended;
}

Ended runOwn(const std::wstring& program, const std::wstring& arguments) {
    return run(L"\"" + programFolder() + L"\\" + program + L"\" " + arguments);
}

}  // namespace harness
