#include <gtest/gtest.h>

#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/harness/TemporaryFolder.h"

namespace standin::outlook {
namespace {

TEST(Program, CommandsWorkOnTheFile) {
    harness::TemporaryFolder folder;
    SetEnvironmentVariableW(L"STANDIN_MAILBOX", folder.file(L"mailbox.db").c_str());
    std::string output;
    const auto run = [&output](const std::wstring& arguments) {
        const auto ended = harness::runOwn(L"outlook_standin.exe", arguments);
        output = ended.out + ended.error;
        return ended.exitCode;
    };
    const auto import = [&](const std::wstring& options, const std::string& cards) {
        harness::writeFile(folder.file(L"book.vcf"), cards);
        return run(L"import " + options + L" \"" + folder.file(L"book.vcf") + L"\"");
    };
    const std::string ada =
        "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Byron;Ada\r\nORG:\x1B[2J\xE2\x80\xAE\r\n?\r\n"
        "TEL;TYPE=work:+44 1\r\nEND:VCARD\r\n";
    run(L"quit");
    EXPECT_EQ(import(L"--store Archive --folder \"People\\Old friends\"",
                     ada + "BEGIN:VCARD\r\nVERSION:3.0\r\nN:M\xC3\xBCller;J\r\nTEL;TYPE=home:+49 2\r\n"
                           "TEL:+44 1\r\nEND:VCARD\r\n"),
              0U);
    EXPECT_NE(output.find("2 contacts into Archive\\People\\Old friends"), std::string::npos) << output;
    EXPECT_NE(output.find("1 detail left out\n    Byron, Ada: line 5: "), std::string::npos) << output;
    EXPECT_EQ(run(L"numbers"), 0U);
    EXPECT_EQ(output, "+44 1\n+49 2\n");
    EXPECT_EQ(run(L"list"), 0U);
    EXPECT_NE(output.find("    Old friends (2)\n      Byron, Ada, \uFFFD[2J\uFFFD\n          "
                          "BusinessTelephoneNumber: +44 1\n"),
              std::string::npos)
        << output;
    for (const DWORD status : {0U, 1U}) EXPECT_EQ(run(L"delete --name \"M\u00FCller, J\""), status) << output;
    EXPECT_EQ(import(L"", "nothing"), 1U);
    EXPECT_NE(output.find("there is no BEGIN:VCARD"), std::string::npos) << output;
    EXPECT_EQ(import(L"", ada + "BEGIN:VCARD\r\nTEL:7\r\n"), 1U) << "whole or not at all";
    EXPECT_EQ(import(L"", ada), 0U);
    EXPECT_EQ(run(L"list"), 0U);
    EXPECT_NE(output.find("Contacts (1)"), std::string::npos) << output;
    EXPECT_EQ(run(L"dance"), 2U);
    EXPECT_EQ(run(L"quit"), 1U);
}

}  // namespace
}  // namespace standin::outlook
