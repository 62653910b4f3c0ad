#include "support/FLog.h"

#include "support/Clock.h"
#include "support/Encoding.h"
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

}  // namespace
}  // namespace zelbar
