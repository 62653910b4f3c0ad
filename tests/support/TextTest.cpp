#include "support/cLocalizedText.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

class TextTest : public SupportTest {
  protected:
    void userSpeaks(const std::wstring& languageTable) {
        registry.set(HKEY_LOCAL_MACHINE, kInstall, L"LanguageChoice", languageTable);
    }

    mLogError errors{module};
    localize languages{module, errors};
    cLocalizedText texts{module, languages};
};

TEST_F(TextTest, EveryNumberThatTheClientShowsHasAText) {
    std::vector<int> numbers = {1000, 1001, 1008, 5100, 7060, 7088, 7100,
                                7101, 7102, 7103, 7110, 7111, 99999};
    const std::pair<int, int> ranges[] = {
        {5000, 5003}, {5200, 5207}, {5300, 5300}, {5400, 5402}, {21000, 21018}};
    for (const auto& [first, last] : ranges) {
        for (int number = first; number <= last; ++number) numbers.push_back(number);
    }
    for (const wchar_t* table : {L"0,us,5900,0", L"0,fr,5901,0", L"1,fr,5901,0"}) {
        userSpeaks(table);
        localize fresh(module, errors);
        cLocalizedText translator(module, fresh);
        for (const int number : numbers) {
            const std::wstring digits = std::to_wstring(number);
            const std::wstring key = L"#" + std::wstring(5 - digits.size(), L'0') + digits + L"#";
            const std::wstring text = translator.translate(key);
            EXPECT_FALSE(text.empty()) << number;
            EXPECT_FALSE(text.starts_with(L'#')) << number;
        }
    }
}

TEST_F(TextTest, TheLanguagesTextThenTheDefaultThenEnglishThenTheTextItself) {
    userSpeaks(L"0,hun,5999,238");
    texts.init(0);
    EXPECT_EQ(texts.translate(L"#05000#"), L"Kapcsolattartó megnyitása");
    EXPECT_EQ(texts.translate(L"#07088#Phone sets"), L"Telefonkészülékek");
    EXPECT_EQ(texts.translate(L"#07060#Employees"), L"Employees");
    EXPECT_EQ(texts.translate(L"#12345#Not in any file"), L"Not in any file");
    EXPECT_EQ(texts.translate(L"#05200#"), L"Send an e-mail") << "an empty translation is none";
    EXPECT_EQ(texts.translate(L"#21002#"), L"Business");
    EXPECT_EQ(texts.translate(L"#12345#"), L"#12345#");
    EXPECT_EQ(texts.translate(L"plain"), L"plain");
    EXPECT_EQ(texts.translate(L""), L"");
}

TEST_F(TextTest, InitReadsTheLanguageAnew) {
    userSpeaks(L"0,us,5900,0;1,hun,5999,238");
    EXPECT_EQ(texts.translate(L"#05000#"), L"Open the contact");
    registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", L"1");
    EXPECT_EQ(texts.translate(L"#05000#"), L"Open the contact");
    texts.init(0);
    EXPECT_EQ(texts.translate(L"#05000#"), L"Kapcsolattartó megnyitása");
}

TEST_F(TextTest, ABadResourceNumberShowsEnglish) {
    // The two long ones are the foreign resource when cut down to 16 bits.
    for (const wchar_t* table : {L"0,xx,0,0", L"0,xx,-59537,0", L"0,xx,71535,0", L"0,xx,1,0"}) {
        userSpeaks(table);
        localize fresh(module, errors);
        cLocalizedText translator(module, fresh);
        EXPECT_EQ(translator.translate(L"#05000#"), L"Open the contact") << testing::PrintToString(table);
    }
}

TEST(ModuleTest, VersionInformationNamesCompanyAndTitle) {
    const Module module = thisModule();
    EXPECT_EQ(module.handle, GetModuleHandleW(nullptr));
    EXPECT_EQ(module.company, L"Norvane");
    EXPECT_EQ(module.title, L"zelbar00");
    EXPECT_EQ(module.stem, L"test_support");
    EXPECT_TRUE(harness::exists(module.folder + L"\\test_support.exe"));
}

}  // namespace
}  // namespace zelbar
