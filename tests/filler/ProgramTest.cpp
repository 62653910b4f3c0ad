#include <gtest/gtest.h>

#include "tests/harness/Process.h"

namespace {

harness::Ended fillcache(const std::wstring& arguments) {
    return harness::run(L"\"" + harness::programFolder() + L"\\fillcache.exe\" " + arguments);
}

TEST(Program, ExplainsItself) {
    const harness::Ended help = fillcache(L"--help");
    EXPECT_EQ(help.exitCode, 0u);
    EXPECT_NE(help.out.find("--quiet"), std::string::npos);
    const harness::Ended wrong = fillcache(L"--quiet --f\u00f6lder");
    EXPECT_EQ(wrong.exitCode, 2u);
    EXPECT_NE(wrong.error.find("--f\xC3\xB6lder"), std::string::npos);
}

}  // namespace
