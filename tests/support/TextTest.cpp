#include "support/cLocalizedText.h"

#include <algorithm>
#include <set>

#include "support/Encoding.h"
#include "support/NumberedText.h"
#include "support/Text.h"
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
    // English, a language whose resource is missing, and a table without the user's language.
    for (const wchar_t* table : {L"0,us,5900,0", L"0,xx,5998,0", L"1,us,5900,0"}) {
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

/// The text resources as they are embedded, by the numbers of the default language table.
class LanguageFilesTest : public TextTest {
  protected:
    static std::string embedded(std::int32_t resource) {
        HRSRC place = FindResourceW(nullptr, MAKEINTRESOURCEW(resource), RT_RCDATA);
        HGLOBAL data = place ? LoadResource(nullptr, place) : nullptr;
        if (!data) return {};
        return {static_cast<const char*>(LockResource(data)), SizeofResource(nullptr, place)};
    }

    const LanguageTable table = splitLanguageTable(kDefaultLanguageTable).table;
    const TextFile english = parseTextFile(embedded(5900));
};

TEST_F(LanguageFilesTest, EveryLanguageHasTheNumbersOfEnglishOnceEach) {
    ASSERT_EQ(table.size(), 8u);
    for (const auto& [index, language] : table) {
        SCOPED_TRACE(utf8(language.code));
        const std::string file = embedded(language.resource);
        const TextFile translated = parseTextFile(file);
        for (const auto& [number, text] : english)
            EXPECT_TRUE(translated.contains(number)) << number << " is missing or empty";
        for (const auto& [number, text] : translated) {
            EXPECT_TRUE(english.contains(number)) << number << " is superfluous";
            const std::wstring shown = wide(text);
            EXPECT_EQ(trimmed(shown), shown) << number << ": the caller adds the blanks";
        }
        const auto lines = harness::lines(file);
        const auto textLines = std::ranges::count_if(
            lines, [](const std::string& line) { return !line.empty() && line.front() != ';'; });
        EXPECT_EQ(static_cast<std::size_t>(textLines), translated.size())
            << "a number twice, or a line that is no text";
    }
}

TEST_F(LanguageFilesTest, MnemonicsAndPunctuationFollowEnglish) {
    // Buttons that stand together: folder selection, folder tree, trace window.
    const std::vector<std::set<int>> dialogs = {{1000, 1001, 1008}, {1000, 1001, 7123}, {7130}};
    std::set<int> inDialogs;
    for (const auto& buttons : dialogs) inDialogs.insert(buttons.begin(), buttons.end());
    for (const auto& [index, language] : table) {
        SCOPED_TRACE(utf8(language.code));
        std::map<int, wchar_t> mnemonics;
        for (const auto& [number, text] : parseTextFile(embedded(language.resource))) {
            const auto original = english.find(number);
            if (original == english.end()) continue;
            EXPECT_EQ(std::ranges::count(text, '&'), std::ranges::count(original->second, '&')) << number;
            const char closing = original->second.back();
            if (closing == '.' || closing == ':' || closing == ')') {
                EXPECT_EQ(text.back(), closing) << number;
            }
            const std::wstring shown = wide(text) + L" ";
            const auto mark = shown.find(L'&');
            if (mark == std::wstring::npos) continue;
            EXPECT_TRUE(IsCharAlphaNumericW(shown[mark + 1])) << number;
            EXPECT_TRUE(inDialogs.contains(number)) << number << ": name its dialog's buttons above";
            mnemonics[number] = towupper(shown[mark + 1]);
        }
        for (const auto& buttons : dialogs) {
            std::set<wchar_t> taken;
            for (const int number : buttons) EXPECT_TRUE(taken.insert(mnemonics[number]).second) << number;
        }
    }
}

TEST_F(LanguageFilesTest, AccentsArriveUnharmed) {
    const struct {
        const wchar_t* lang;
        const wchar_t* key;
        const wchar_t* text;
    } cases[] = {{L"0", L"#21018#", L"TTY/TDD"},
                 {L"1", L"#21007#Home Fax", L"T\u00E9l\u00E9copie (domicile)"},
                 {L"2", L"#05100#", L"Kontakt schlie\u00DFen"},
                 {L"3", L"#21011#", L"M\u00F3vil"},
                 {L"4", L"#21015#", L"Els\u0151dleges telefon"},
                 {L"5", L"#21001#", L"Faks s\u0142u\u017Cbowy"},
                 {L"7", L"#07130#", L"&Kopi\u00EBren"},
                 {L"8", L"#21006#", L"Societ\u00E0"}};
    for (const auto& c : cases) {
        registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", c.lang);
        texts.init();
        EXPECT_EQ(texts.translate(c.key), c.text);
    }
}

TEST_F(LanguageFilesTest, TheLanguagesCharacterSetShowsItsTexts) {
    for (const auto& [index, language] : table) {
        const UINT codePage = language.charset == 238 ? 1250 : 1252;
        for (const auto& [number, text] : parseTextFile(embedded(language.resource))) {
            const std::wstring shown = wide(text);
            BOOL replaced = FALSE;
            EXPECT_GT(WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, shown.data(),
                                          static_cast<int>(shown.size()), nullptr, 0, nullptr, &replaced),
                      0);
            EXPECT_FALSE(replaced) << utf8(language.code) << ' ' << number << ": " << text;
        }
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
