#include <gtest/gtest.h>
#include <windows.h>

#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/harness/TemporaryFolder.h"

namespace {

/// The registered driver in a script's process, Outlook in a process of its own.
TEST(ActionScript, SetsUpCopiesAndRunsEveryAction) {
    harness::TemporaryFolder folder;
    const auto quitOutlook = [] { harness::run(harness::programFolder() + L"\\outlook_standin.exe quit"); };
    quitOutlook();
    SetEnvironmentVariableW(L"STANDIN_MAILBOX", folder.file(L"mailbox.db").c_str());
    const auto ended = harness::run(L"cscript //nologo \"" ACTION_SCRIPT L"\" \"" + folder.path() + L"\"");
    EXPECT_EQ(ended.exitCode, 0u);
    EXPECT_EQ(ended.out, "actions: ok\r\n") << ended.error;
    quitOutlook();

    // Nobody waits for the started programs, so the test does.
    const std::wstring note = folder.file(L"calls.txt");
    std::string calls;
    for (int i = 0; i < 100 && calls.size() < 24; ++i, Sleep(50))
        if (harness::exists(note)) calls = harness::readFile(note);
    EXPECT_NE(calls.find("INC 555100\r\n"), std::string::npos) << calls;
    EXPECT_NE(calls.find("OUT 555100\r\n"), std::string::npos) << calls;
}

}  // namespace
