#include "support/FLog.h"

#include "support/Clock.h"
#include "support/Encoding.h"
#include "support/mLogError.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

using harness::lines;
using harness::readFile;

class FLogTest : public SupportTest {
  protected:
    void mode(const std::wstring& value) { registry.set(HKEY_CURRENT_USER, kPopup, L"Developper", value); }

    const std::wstring current = folder.file(L"zelbar00.log");
    const std::wstring previous = folder.file(L"zelbar00_o.log");
};

TEST_F(FLogTest, OffUnlessAskedFor) {
    for (const wchar_t* value : {L"absent", L"", L"3", L" 2"}) {
        if (value != std::wstring(L"absent")) mode(value);
        FLog log(module);
        log.load();
        EXPECT_FALSE(log.LogEnabled()) << testing::PrintToString(value);
        bool asked = false;
        log.trace(L"lost ", [&] { return asked = true; });
        EXPECT_FALSE(asked);
        EXPECT_FALSE(harness::exists(current));
    }
}

TEST_F(FLogTest, LinesGoToTheFileAtOnce) {
    mode(L"2");
    FLog log(module);
    log.load();
    const std::string before = utf8(dateText(currentDate()));
    log.AddSimpleLog(L"banner Łukasz 𝄞");
    log.trace(L"a line that costs nothing but itself", []() -> long { throw Fault{462, {}, {}}; });
    log.trace(
        L"  id=", std::wstring(L"A1"), L" n=", [] { return 42; }, L" eof=", true, L" bof=", false);
    log.fault(L"Error (FindNext): ", Fault{91, L"Object not set", L"zelbar00"});
    log.trace(L"own\r\nwords, ", std::wstring(L"a\r\nvalue"), [] { return std::wstring(L"\x2028\tasked"); });
    const std::string after = utf8(dateText(currentDate()));
    log.load();
    const auto written = lines(readFile(current));
    ASSERT_EQ(written.size(), 5u);
    EXPECT_EQ(written[0], "banner \xC5\x81ukasz \xF0\x9D\x84\x9E");
    EXPECT_TRUE(written[1].ends_with(":   id=A1 n=42 eof=True bof=False")) << written[1];
    EXPECT_TRUE(written[2].ends_with(": Error (FindNext): Object not set in zelbar00")) << written[2];
    EXPECT_TRUE(written[3] == before + ": own" || written[3] == after + ": own") << "the system's date text";
    EXPECT_EQ(written[4], "words, a  value  asked") << "only the driver's own words break a line";
}

TEST_F(FLogTest, KeepsOneEarlierRunButNeverEmptiesWhatIsBeingWritten) {
    mode(L"2");
    const auto run = [&](const wchar_t* line) {
        FLog log(module);
        log.load();
        log.AddSimpleLog(line);
    };
    run(L"first");
    run(L"second");
    {
        FLog client(module);
        client.load();
        client.AddSimpleLog(L"third");
        run(L"a second program");
        client.AddSimpleLog(L"third goes on");
    }
    EXPECT_EQ(lines(readFile(current)),
              (std::vector<std::string>{"third", "a second program", "third goes on"}));
    EXPECT_EQ(lines(readFile(previous)), std::vector<std::string>{"second"});
}

class ErrorFileTest : public SupportTest {
  protected:
    std::vector<std::string> written() const {
        return harness::lines(harness::readFile(errors.ErrorLogFileName()));
    }

    mLogError errors{(module.title = L"DrvTitle", module)};
};

TEST_F(ErrorFileTest, EachLineHasFiveFields) {
    const wchar_t kTime[] = L"24/05/2002 14:03:11";
    const Fault denied{70, L"Permission denied", L""};
    const Fault lost{static_cast<long>(0x800403E9), L"Loss of connection with Outlook.",
                     L"zelbar00.GetApp()"};
    errors.LogError({denied, 0, 0}, L"modMultiUser.MakeDir", nullptr, L"C:\\Data\\User", kTime);
    errors.LogError({}, L"GetApp()", nullptr, L"", kTime);
    errors.LogError({lost, 0, 12}, L"Show", L"Folders", L"Zoë\r\n\tforged", kTime);
    EXPECT_EQ(written(),
              (std::vector<std::string>{
                  "24/05/2002 14:03:11\tErr: DrvTitle - modMultiUser.MakeDir\tC:\\Data\\User\t"
                  "Permission denied - 70 (0x46)\t-",
                  "24/05/2002 14:03:11\tErr: DrvTitle - GetApp()\t-\t-\t-",
                  "24/05/2002 14:03:11\tErr: zelbar00.GetApp().Folders - Show line 12\tZo\xC3\xAB   forged\t"
                  "Loss of connection with Outlook. - -2147220503 (0x800403E9)\t-"}));
}

TEST_F(ErrorFileTest, LiesInTheDocumentsFolderUnderTheUsersName) {
    EXPECT_EQ(errors.ErrorLogFileName(), L"");
    errors.LogError({}, L"x");
    EXPECT_NE(GetNetUserName(), L"");
    EXPECT_EQ(errors.ErrorLogFileName(), folder.file(L"Documents\\error_" + GetNetUserName() + L".log"));
    harness::TemporaryFolder elsewhere;
    registry.useProfile(elsewhere);
    errors.LogError({}, L"y");
    EXPECT_EQ(written().size(), 2u) << "the name is made once";
}

}  // namespace
}  // namespace zelbar
