#include "support/localize.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

class LanguageTest : public SupportTest {
  protected:
    void user(const std::wstring& lang) { registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", lang); }

    mLogError errors{module};
    localize languages{module, errors};
};

TEST_F(LanguageTest, CharacterSetOfTheUsersLanguage) {
    EXPECT_EQ(languages.GetChartset(), 0) << "no language set";
    const struct {
        const wchar_t* lang;
        int charset;
        int resource;
    } cases[] = {{L"4", 238, 5904}, {L" 5 ", 238, 5905}, {L"8", 0, 5909}, {L"0", 0, 5900},
                 {L"fr", 0, 5900},  {L"6", 0, 0},        {L"12", 0, 0},   {L"-1", 0, 0}};
    for (const auto& c : cases) {
        user(c.lang);
        EXPECT_EQ(languages.GetChartset(), c.charset) << testing::PrintToString(c.lang);
        EXPECT_EQ(languages.textResource(), c.resource) << testing::PrintToString(c.lang);
    }
}

TEST_F(LanguageTest, TheInstallationsTableIsReadOnce) {
    registry.set(HKEY_LOCAL_MACHINE, kInstall, L"LanguageChoice", L" 3,xx,5910,177; 9,yy ");
    user(L"3");
    EXPECT_EQ(languages.GetChartset(), 177);
    registry.set(HKEY_LOCAL_MACHINE, kInstall, L"LanguageChoice", L"3,xx,5910,2");
    EXPECT_EQ(languages.GetChartset(), 177);
    const auto lines = harness::lines(harness::readFile(errors.ErrorLogFileName()));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(
        lines[0].find("localize.SplitLanguageChoice\tWrong language string (incorrect param number): > 9,yy<"
                      "\t-\t-"),
        std::string::npos)
        << lines[0];
}

}  // namespace
}  // namespace zelbar
