#include "support/FLog.h"

#include "support/Clock.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

using harness::exists;
using harness::lines;
using harness::readFile;

class Recorder : public LogWindow {
  public:
    void show() noexcept override { events.push_back(L"show"); }
    void clear() noexcept override { events.push_back(L"clear"); }
    void add(std::wstring_view line, Follow follow) noexcept override {
        events.push_back((follow == Follow::kRefresh ? L"refresh " : L"scroll ") + std::wstring(line));
    }
    std::vector<std::wstring> events;
};

class FLogTest : public SupportTest {
  protected:
    void mode(const std::wstring& value) { registry.set(HKEY_CURRENT_USER, kPopup, L"Developper", value); }

    const std::wstring current = folder.file(L"zelbar00.log");
    const std::wstring previous = folder.file(L"zelbar00_o.log");
};

/// The text behind "date time: "; the date itself is the system's.
std::string withoutTime(const std::string& line) {
    const auto colon = line.find(": ");
    return colon == std::string::npos ? "no time: " + line : line.substr(colon + 2);
}

TEST_F(FLogTest, OffUnlessAskedFor) {
    for (const wchar_t* value : {L"absent", L"", L"3", L"0", L"22", L" 2"}) {
        if (value != std::wstring(L"absent")) mode(value);
        Recorder window;
        FLog log(module, &window);
        log.load();
        EXPECT_FALSE(log.LogEnabled()) << testing::PrintToString(value);
        EXPECT_GT(log.LogStart(), 0);
        bool asked = false;
        log.trace(L"lost ", [&] { return asked = true; });
        EXPECT_FALSE(asked);
        EXPECT_TRUE(window.events.empty());
        EXPECT_FALSE(exists(current));
    }
}

TEST_F(FLogTest, LinesGoToTheFileAtOnce) {
    mode(L"2");
    FLog log(module);
    log.load();
    log.AddSimpleLog(L"banner Łukasz 𝄞");
    log.trace(L"=>FindNext()");
    log.trace(L"a line that costs nothing but itself", []() -> long { throw Fault{462, {}, {}}; });
    log.trace(L"  id=", std::wstring(L"A1"), L" n=", [] { return 42; }, L" eof=", true, L" bof=", false);
    log.fault(L"Error (FindNext): ", Fault{91, L"Object not set", L"zelbar00"});
    log.load();
    const auto written = lines(readFile(current));
    ASSERT_EQ(written.size(), 4u);
    EXPECT_EQ(written[0], "banner \xC5\x81ukasz \xF0\x9D\x84\x9E");
    EXPECT_EQ(withoutTime(written[1]), "=>FindNext()");
    EXPECT_EQ(withoutTime(written[2]), "  id=A1 n=42 eof=True bof=False");
    EXPECT_EQ(withoutTime(written[3]), "Error (FindNext): Object not set in zelbar00");
}

TEST_F(FLogTest, TimeStampIsTheSystemsDefaultText) {
    mode(L"2");
    FLog log(module);
    log.load();
    const std::wstring before = dateText(currentDate());
    log.Addlog(L"x");
    const std::wstring after = dateText(currentDate());
    const auto stamp = lines(readFile(current)).at(0);
    const auto wanted = [](const std::wstring& time) {
        return std::string(time.begin(), time.end()) + ": x";
    };
    EXPECT_TRUE(stamp == wanted(before) || stamp == wanted(after)) << stamp;
}

TEST_F(FLogTest, KeepsOneEarlierRun) {
    mode(L"2");
    for (const wchar_t* run : {L"first", L"second", L"third"}) {
        FLog log(module);
        log.load();
        log.AddSimpleLog(run);
    }
    EXPECT_EQ(lines(readFile(current)), std::vector<std::string>{"third"});
    EXPECT_EQ(lines(readFile(previous)), std::vector<std::string>{"second"});
}

TEST_F(FLogTest, AFileThatCannotBeOpenedLosesLinesOnly) {
    mode(L"2");
    folder.makeFolder(L"zelbar00.log");
    FLog log(module);
    log.load();
    EXPECT_TRUE(log.LogEnabled());
    EXPECT_TRUE(log.LogToFile());
    log.trace(L"lost");
}

TEST_F(FLogTest, WindowModeHandsLinesToTheWindow) {
    mode(L"1");
    Recorder window;
    FLog log(module, &window);
    log.load();
    EXPECT_TRUE(log.LogEnabled());
    EXPECT_FALSE(log.LogToFile());
    log.AddSimpleLog(L"plain");
    log.Addlog(L"timed");
    ASSERT_EQ(window.events.size(), 4u);
    EXPECT_EQ(window.events[0], L"show");
    EXPECT_EQ(window.events[1], L"clear");
    EXPECT_EQ(window.events[2], L"scroll plain");
    EXPECT_TRUE(window.events[3].starts_with(L"refresh ")) << testing::PrintToString(window.events[3]);
    EXPECT_TRUE(window.events[3].ends_with(L": timed"));
    EXPECT_FALSE(exists(current));
}

}  // namespace
}  // namespace zelbar
