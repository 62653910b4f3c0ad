#include "support/cLocalizedText.h"

#include <algorithm>

#include "support/Encoding.h"
#include "support/LanguageTable.h"
#include "support/NumberedText.h"
#include "support/Text.h"
#include "tests/support/Fixture.h"

namespace zelbar {
namespace {

TEST(Rules, LeadingIntegers) {
    const struct {
        const wchar_t* text;
        std::optional<std::int16_t> number;
    } cases[] = {{L"-12x", -12},    {L"+7", 7},          {L"x5", 0},     {L"-", 0},       {L" 5", 0},
                 {L"32767", 32767}, {L"-32768", -32768}, {L"32768", {}}, {L"-32769", {}}, {L"00012", 12},
                 {L"٣", 0}};
    for (const auto& c : cases)
        EXPECT_EQ(leadingInteger16(c.text), c.number) << testing::PrintToString(c.text);
    EXPECT_EQ(leadingInteger(L"  4 "), 4);
    EXPECT_EQ(leadingInteger(L"fr"), 0);
    EXPECT_EQ(leadingInteger(L"2147483648"), 2147483647);
}

TEST(Rules, TextFileKeepsGoodLinesOnly) {
    const TextFile texts = parseTextFile(
        "\xEF\xBB\xBF"
        "05000=Caf\xC3\xA9\r\n; 05001=comment\n\n5002=short\n05003:colon\n05004=\n05005=a=b\n05005=last");
    EXPECT_EQ(texts, (TextFile{{5000, "Caf\xC3\xA9"}, {5005, "last"}}));
}

TEST(Rules, MalformedLanguageEntries) {
    const struct {
        const wchar_t *entry, *reason, *understood;
    } cases[] = {
        {L"9,xx,5910", L"incorrect param number", L""},
        {L"-1,xx,5910,0", L"incorrect param number", L""},
        {L" 9, ,5910,0", L"no path", L""},
        {L"9,xx,0,238", L"ressource = null", L"xx 0 238"},
        {L" 9 , xx , 5910 , 238 ", L"", L"xx 5910 238"},
        {L"9,xx,5910,99999", L"", L"xx 5910 32767"},
    };
    for (const auto& c : cases) {
        const auto split = splitLanguageTable(c.entry);
        std::wstring messages, understood;
        for (const std::wstring& message : split.messages) messages += message;
        if (const Language* language = languageAt(split.table, 9))
            understood = language->code + L" " + std::to_wstring(language->resource) + L" " +
                         std::to_wstring(language->charset);
        EXPECT_EQ(
            messages,
            *c.reason ? std::wstring(L"Wrong language string (") + c.reason + L"): >" + c.entry + L"<" : L"");
        EXPECT_EQ(understood, c.understood);
    }
}

class TextTest : public SupportTest {
  protected:
    void userSpeaks(const std::wstring& languageTable) {
        registry.set(HKEY_LOCAL_MACHINE, kInstall, L"LanguageChoice", languageTable);
    }

    mLogError errors{module};
    localize languages{module, errors};
    cLocalizedText texts{module, languages};
};

TEST_F(TextTest, TheLanguagesTextThenTheDefaultThenEnglishThenTheTextItself) {
    userSpeaks(L"0,hun,5999,238");
    texts.init(0);
    EXPECT_EQ(texts.translate(L"#05000#"), L"Kapcsolattartó megnyitása");
    EXPECT_EQ(texts.translate(L"#07088#Phone sets"), L"Telefonkészülékek");
    EXPECT_EQ(texts.translate(L"#07060#Employees"), L"Employees");
    EXPECT_EQ(texts.translate(L"#12345#Not in any file"), L"Not in any file");
    EXPECT_EQ(texts.translate(L"#05200#"), L"Send an e-mail") << "an empty translation is none";
    EXPECT_EQ(texts.translate(L"#21002#"), L"Business");
    EXPECT_EQ(texts.translate(L"#12345#&OK #1#"), L"&OK #1#");
    for (const wchar_t* other :
         {L"#12345#", L"plain", L"", L"#", L"#1234#x", L"#123456#x", L"#12a45#x", L"x#12345#", L"#12345"})
        EXPECT_EQ(texts.translate(other), other);
}

TEST_F(TextTest, TheLanguageIsReadByInitAndAfterRelease) {
    userSpeaks(L"0,us,5900,0;1,hun,5999,238;2,xx,71535,0");
    const auto openContact = [&](const wchar_t* lang) {
        registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", lang);
        return texts.translate(L"#05000#");
    };
    EXPECT_EQ(openContact(L"0"), L"Open the contact");
    EXPECT_EQ(openContact(L"1"), L"Open the contact");
    texts.release();
    EXPECT_EQ(openContact(L"1"), L"Kapcsolattartó megnyitása");
    registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", L"2");
    texts.init(0);
    EXPECT_EQ(openContact(L"2"), L"Open the contact") << "the foreign one only when cut to 16 bits";
}

TEST_F(TextTest, TheUsersLanguageIsLookedUpInTheInstallationsTable) {
    const struct {
        const wchar_t* lang;
        int charset;
        int resource;
    } cases[] = {{L"4", 238, 5904}, {L" 5 ", 238, 5905}, {L"8", 0, 5909},
                 {L"fr", 0, 5900},  {L"6", 0, 0},        {L"-1", 0, 0}};
    for (const auto& c : cases) {
        registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", c.lang);
        EXPECT_EQ(languages.GetChartset(), c.charset) << testing::PrintToString(c.lang);
        EXPECT_EQ(languages.textResource(), c.resource) << testing::PrintToString(c.lang);
    }
    userSpeaks(L" 3,xx,5910,177; 9,yy ");
    registry.set(HKEY_CURRENT_USER, kClientSettings, L"lang", L"3");
    localize own(module, errors);
    EXPECT_EQ(own.GetChartset(), 177);
    const auto lines = harness::lines(harness::readFile(errors.ErrorLogFileName()));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NE(lines[0].find("\tWrong language string (incorrect param number): > 9,yy<\t-\t-"),
              std::string::npos);
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

TEST_F(LanguageFilesTest, EveryLanguageHasWhatEnglishHas) {
    ASSERT_EQ(table.size(), 8u);
    for (const auto& [index, language] : table) {
        SCOPED_TRACE(utf8(language.code));
        const std::string file = embedded(language.resource);
        const TextFile translated = parseTextFile(file);
        for (const auto& [number, text] : english)
            EXPECT_TRUE(translated.contains(number)) << number << " is missing or empty";
        for (const auto& [number, text] : translated) {
            const auto original = english.find(number);
            ASSERT_TRUE(original != english.end()) << number << " is superfluous";
            const std::wstring shown = wide(text);
            EXPECT_EQ(trimmed(shown), shown) << number << ": the caller adds the blanks";
            const char closing = original->second.back();
            if (closing == '.' || closing == ':' || closing == ')') {
                EXPECT_EQ(text.back(), closing) << number;
            }
            EXPECT_EQ(std::ranges::count(text, '&'), std::ranges::count(original->second, '&')) << number;
            const auto mark = shown.find(L'&');
            EXPECT_TRUE(mark == shown.npos || IsCharAlphaNumericW(shown.at(mark + 1))) << number;
        }
        const auto lines = harness::lines(file);
        const auto textLines = std::ranges::count_if(
            lines, [](const std::string& line) { return !line.empty() && line.front() != ';'; });
        EXPECT_EQ(static_cast<std::size_t>(textLines), translated.size())
            << "a number twice, or a line that is no text";
    }
}

}  // namespace
}  // namespace zelbar
