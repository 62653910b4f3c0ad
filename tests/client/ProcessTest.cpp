#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/harness/Files.h"
#include "tests/harness/TemporaryFolder.h"

namespace {

std::wstring besideThisProgram(const wchar_t* file) {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring own = path;
    return own.substr(0, own.rfind(L'\\') + 1) + file;
}

struct Ended {
    DWORD exitCode = STILL_ACTIVE;
    std::string out;
    std::string error;
};

HANDLE inheritableFile(const std::wstring& path) {
    SECURITY_ATTRIBUTES inherit{sizeof(inherit), nullptr, TRUE};
    return CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS, 0, nullptr);
}

/// Runs the real pimcall.exe with its output in files.
Ended pimcall(const std::wstring& arguments) {
    const harness::TemporaryFolder folder;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = inheritableFile(folder.file(L"out"));
    startup.hStdError = inheritableFile(folder.file(L"error"));
    PROCESS_INFORMATION process{};
    std::wstring line = L"pimcall " + arguments;
    const BOOL started = CreateProcessW(besideThisProgram(L"pimcall.exe").c_str(), line.data(), nullptr,
                                        nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    Ended ended;
    if (!started) {
        ADD_FAILURE() << "pimcall.exe does not start: " << GetLastError();
        return ended;
    }
    WaitForSingleObject(process.hProcess, 60000);
    GetExitCodeProcess(process.hProcess, &ended.exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    ended.out = harness::readFile(folder.file(L"out"));
    ended.error = harness::readFile(folder.file(L"error"));
    return ended;
}

TEST(Process, TakesAndGivesEveryCharacter) {
    const Ended ended = pimcall(L"\"\u00E9\u0416\U0001F600\"");
    EXPECT_EQ(2u, ended.exitCode);
    EXPECT_EQ("", ended.out);
    EXPECT_TRUE(
        ended.error.starts_with("pimcall: There is no command \"\xC3\xA9\xD0\x96\xF0\x9F\x98\x80\".\n"))
        << ended.error;
}

TEST(Process, EndsWithTheStatusOfItsCommand) {
    const Ended help = pimcall(L"--help");
    EXPECT_EQ(0u, help.exitCode);
    EXPECT_TRUE(help.out.starts_with("pimcall "));
    EXPECT_EQ("", help.error);
    EXPECT_EQ(2u, pimcall(L"").exitCode);
    EXPECT_EQ(2u, pimcall(L"show " + std::wstring(30000, L'x') + L" y").exitCode);
}

}  // namespace
