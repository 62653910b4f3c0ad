#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/harness/Files.h"
#include "tests/harness/TemporaryFolder.h"

namespace {

struct Outcome {
    DWORD status = 0;
    std::string output;
};

/// fillcache.exe beside this program, with its output and its errors in one text.
Outcome run(const std::wstring& arguments) {
    const harness::TemporaryFolder folder;
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring self = path;
    std::wstring command =
        L"\"" + self.substr(0, self.find_last_of(L'\\')) + L"\\fillcache.exe\" " + arguments;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const std::wstring outputPath = folder.file(L"output");
    HANDLE output = CreateFileW(outputPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                0, nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = output;
    PROCESS_INFORMATION process{};
    Outcome outcome;
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process)) {
        ADD_FAILURE() << "fillcache.exe does not start";
    } else {
        WaitForSingleObject(process.hProcess, INFINITE);
        GetExitCodeProcess(process.hProcess, &outcome.status);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    CloseHandle(output);
    outcome.output = harness::readFile(outputPath);
    return outcome;
}

TEST(Program, ExplainsItself) {
    const Outcome help = run(L"--help");
    EXPECT_EQ(help.status, 0u);
    EXPECT_NE(help.output.find("--quiet"), std::string::npos);
    const Outcome wrong = run(L"--quiet --f\u00f6lder");
    EXPECT_EQ(wrong.status, 2u);
    EXPECT_NE(wrong.output.find("--f\xC3\xB6lder"), std::string::npos);
}

}  // namespace
