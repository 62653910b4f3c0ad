#include <gtest/gtest.h>

#include "filler/ContactText.h"
#include "tests/harness/Process.h"

namespace {

TEST(ContactText, NamesAContactAsItIsSearched) {
    const std::pair<filler::NameParts, std::wstring> cases[] = {
        {{L"Byron", L"Ada", L"Engines", L"Byron, Ada"}, L"Byron Ada"},
        {{L"Smith, Jr", L"John", L"", L""}, L"Smith, Jr John"},
        {{L" de  la Tour ", L"\u00c9lo\u00efse\t", L"", L""}, L"de la Tour \u00c9lo\u00efse"},
        {{L" ", L"", L"Engines & Co", L"Somebody"}, L"Engines & Co"},
        {{L"", L"", L"", L"Engines\r\nByron"}, L"Engines Byron"},
        {{std::wstring(254, L'x') + L"\xD83D\xDE00", L"", L"", L""}, std::wstring(254, L'x')},
    };
    for (const auto& [parts, name] : cases) EXPECT_EQ(filler::searchName(parts), name);
}

TEST(Program, ExplainsItself) {
    EXPECT_EQ(harness::runOwn(L"fillcache.exe", L"/?").exitCode, 0u);
    const std::pair<const wchar_t*, const char*> places[] = {
        {L"--f\u00f6lder", "--f\xC3\xB6lder"},
        {L"--country XX", "There is no country"},
        {L"--country=DE --area 089", "89, not 089"},
        {L"--country DE --area", "needs a value"},
        {L"--area 1 --area 2", "more than once"},
        {L"--contry DE", "did you mean --country? Try"},
        {L"--read fast", "table or items"},
        {L"--without-prefix none --country DE", "international, national or unknown"}};
    for (const auto& [words, sentence] : places) {
        const harness::Ended bad = harness::runOwn(L"fillcache.exe", words);
        EXPECT_EQ(bad.exitCode, 2u) << words;
        EXPECT_NE(bad.error.find(sentence), std::string::npos) << bad.error;
    }
}

}  // namespace
