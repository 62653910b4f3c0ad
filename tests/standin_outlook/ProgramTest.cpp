// The server program: across the process border, its end, and its commands.
#include "support/Handle.h"
#include "tests/harness/Files.h"
#include "tests/harness/Process.h"
#include "tests/standin_outlook/Fixture.h"

namespace standin::outlook {
namespace {

constexpr DWORD kPatience = 15000;

/// A fresh mailbox for the program; what the test started has ended afterwards.
class Program : public testing::Test {
  protected:
    Program() {
        SetEnvironmentVariableW(L"STANDIN_MAILBOX", folder.file(L"mailbox.db").c_str());
        run(L"quit");
    }
    ~Program() override { run(L"quit"); }

    /// Runs a command to its end; what it printed is in `output`, errors behind the rest.
    DWORD run(const std::wstring& arguments) {
        const auto ended = harness::runOwn(L"outlook_standin.exe", arguments);
        output = ended.out + ended.error;
        return ended.exitCode;
    }
    static HANDLE processOf(const Object& app) {
        const auto id = static_cast<DWORD>(app.object({L"StandIn"}).integer({L"ProcessId"}));
        EXPECT_NE(id, GetCurrentProcessId());
        return OpenProcess(SYNCHRONIZE, FALSE, id);
    }

    harness::TemporaryFolder folder;
    std::string output;
};

TEST_F(Program, QuitsUnderTheClientStartsAnewAndEndsWithItsLastClient) {
    const Object first = newApplication();
    const zelbar::FileHandle process(processOf(first));
    contactsOf(first).object({L"Items"}).object({L"Add"}).call({L"Save"});
    const auto unknown = faultOf([&] { nameSpaceOf(first).call({L"GetItemFromID"}, L"0000"); });
    EXPECT_EQ(unknown.source, L"Microsoft Outlook");
    Ref<IUnknown> running;
    EXPECT_EQ(GetActiveObject(kApplicationClsid, nullptr, &running), S_OK);
    running.Reset();
    first.call({L"Quit"});
    EXPECT_EQ(WaitForSingleObject(process.get(), kPatience), WAIT_OBJECT_0);
    EXPECT_EQ(faultOf([&] { first.call({L"Name"}); }).number, kServerGone);
    EXPECT_NE(GetActiveObject(kApplicationClsid, nullptr, &running), S_OK);

    Object second = newApplication();
    const zelbar::FileHandle other(processOf(second));
    EXPECT_EQ(contactsOf(second).object({L"Items"}).integer({L"Count"}), 1);
    EXPECT_EQ(second.object({L"StandIn"}).integer({L"LiveObjects"}), 1);
    second = {};
    EXPECT_EQ(WaitForSingleObject(other.get(), kPatience), WAIT_OBJECT_0);
}

TEST_F(Program, CommandsWorkOnTheFile) {
    harness::writeFile(folder.file(L"book.vcf"),
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Byron;Ada\r\nORG:\x1B[2J\xE2\x80\xAE\r\n?\r\n"
                       "TEL;TYPE=work:+44 1\r\nEND:VCARD\r\n"
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nN:M\xC3\xBCller;J\r\nTEL;TYPE=home:+49 2\r\nTEL:+44 "
                       "1\r\nEND:VCARD\r\n");
    harness::writeFile(folder.file(L"bad.vcf"), "nothing");
    const auto path = [&](const wchar_t* name) { return L"\"" + folder.file(name) + L"\""; };
    EXPECT_EQ(run(L"import --store Archive --folder \"People\\Old friends\" " + path(L"book.vcf")), 0U)
        << output;
    EXPECT_NE(output.find("2 contacts into Archive\\People\\Old friends"), std::string::npos) << output;
    EXPECT_NE(output.find("1 detail left out\n    Byron, Ada: line 5: "), std::string::npos) << output;
    EXPECT_EQ(run(L"numbers"), 0U);
    EXPECT_EQ(output, "+44 1\n+49 2\n");
    EXPECT_EQ(run(L"list"), 0U);
    EXPECT_NE(output.find("    Old friends (2)\n      Byron, Ada, \uFFFD[2J\uFFFD\n          "
                          "BusinessTelephoneNumber: +44 1\n"),
              std::string::npos)
        << output;
    EXPECT_EQ(run(L"delete --name \"M\u00FCller, J\""), 0U) << output;
    EXPECT_EQ(run(L"delete --name \"M\u00FCller, J\""), 1U);
    EXPECT_EQ(run(L"numbers"), 0U);
    EXPECT_EQ(output, "+44 1\n");
    EXPECT_EQ(run(L"import " + path(L"bad.vcf")), 1U);
    EXPECT_NE(output.find("there is no BEGIN:VCARD"), std::string::npos) << output;
    EXPECT_EQ(run(L"dance"), 2U);
    EXPECT_EQ(run(L"quit"), 1U);
}

}  // namespace
}  // namespace standin::outlook
