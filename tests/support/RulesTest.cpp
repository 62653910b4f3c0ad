#include <gtest/gtest.h>

#include "support/LanguageTable.h"
#include "support/NumberedText.h"
#include "support/Text.h"

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
        const wchar_t* entry;
        const wchar_t* reason;
        const wchar_t* code;
        std::int32_t resource;
        std::int16_t charset;
    } cases[] = {
        {L"9,xx,5910", L"incorrect param number", nullptr, 0, 0},
        {L"-1,xx,5910,0", L"incorrect param number", nullptr, 0, 0},
        {L" 9, ,5910,0", L"no path", nullptr, 0, 0},
        {L"9,xx,0,238", L"ressource = null", L"xx", 0, 238},
        {L" 9 , xx , 5910 , 238 ", nullptr, L"xx", 5910, 238},
        {L"9,xx,5910,99999", nullptr, L"xx", 5910, 32767},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.entry));
        const auto split = splitLanguageTable(c.entry);
        std::vector<std::wstring> messages;
        if (c.reason)
            messages = {std::wstring(L"Wrong language string (") + c.reason + L"): >" + c.entry + L"<"};
        EXPECT_EQ(split.messages, messages);
        const Language* language = languageAt(split.table, 9);
        ASSERT_EQ(language != nullptr, c.code != nullptr);
        if (!language) continue;
        EXPECT_EQ(language->code, c.code);
        EXPECT_EQ(language->resource, c.resource);
        EXPECT_EQ(language->charset, c.charset);
    }
}

}  // namespace
}  // namespace zelbar
