#include "tests/harness/Process.h"

#include <gtest/gtest.h>

namespace {

harness::Ended pimcall(const std::wstring& arguments) {
    return harness::runOwn(L"pimcall.exe", arguments);
}

TEST(Process, TakesAndGivesEveryCharacter) {
    const harness::Ended ended = pimcall(L"\"\u00E9\u0416\U0001F600\"");
    EXPECT_EQ(2u, ended.exitCode);
    EXPECT_EQ("", ended.out);
    EXPECT_TRUE(
        ended.error.starts_with("pimcall: There is no command \"\xC3\xA9\xD0\x96\xF0\x9F\x98\x80\".\n"))
        << ended.error;
}

TEST(Process, EndsWithTheStatusOfItsCommand) {
    const harness::Ended help = pimcall(L"--help");
    EXPECT_EQ(0u, help.exitCode);
    EXPECT_TRUE(help.out.starts_with("pimcall "));
    EXPECT_EQ("", help.error);
    EXPECT_EQ(2u, pimcall(L"").exitCode);
    EXPECT_EQ(2u, pimcall(L"show " + std::wstring(30000, L'x') + L" y").exitCode);
}

}  // namespace
