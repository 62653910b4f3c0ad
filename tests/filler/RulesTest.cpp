#include <gtest/gtest.h>

#include "filler/ContactText.h"
#include "filler/StoreKeys.h"
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

TEST(ContactText, KeepsNumbersAsTheyAreWrittenOnceEach) {
    const std::vector<std::wstring> stored = {L"+33 (0)1 23-45", L"4711", L"04711"};
    EXPECT_EQ(filler::storedNumbers({L"+33 (0)1 23-45", L"", L" 4711\t", L"4711", L"\u00a0", L"04711",
                                     std::wstring(256, L'1')}),
              stored);
}

TEST(StoreKeys, StayWithTheirStores) {
    using Keys = std::vector<std::wstring>;
    const auto keysOf = [](const std::vector<filler::StoreKey>& known, const Keys& stores) {
        Keys indexes;
        for (const auto& key : filler::storeKeys(known, stores, {L"A", L"B"})) indexes.push_back(key.index);
        return indexes;
    };
    const Keys fresh = keysOf({}, {L"A", L"C"});
    EXPECT_NE(fresh[0], fresh[1]);
    const struct {
        std::vector<filler::StoreKey> known;
        Keys stores, indexes;
    } cases[] = {
        {{}, {L"C"}, {fresh[1]}},
        {{{L"1", L"A"}, {L"2", L"B"}}, {L"B", L"C"}, {L"2", fresh[1], L"1"}},
        {{{L"1", L"B"}, {L"2", L"gone for good"}}, {L"A"}, {fresh[0], L"1"}},
        {{{L"1", L"B"}, {L"1", L"A"}, {L"", L"C"}}, {L"B", L"A", L"C"}, {L"1", fresh[0], fresh[1]}},
    };
    for (const auto& c : cases) EXPECT_EQ(keysOf(c.known, c.stores), c.indexes);
    const std::vector<filler::StoreKey> many(100, {L"1", L"B"});
    EXPECT_EQ(keysOf(many, Keys(100, L"X")).size(), 100u);
}

TEST(Program, ExplainsItself) {
    const std::wstring program = L"\"" + harness::programFolder() + L"\\fillcache.exe\" ";
    const harness::Ended help = harness::run(program + L"/?");
    EXPECT_EQ(help.exitCode, 0u);
    EXPECT_NE(help.out.find("--quiet"), std::string::npos);
    const harness::Ended wrong = harness::run(program + L"--quiet --f\u00f6lder");
    EXPECT_EQ(wrong.exitCode, 2u);
    EXPECT_NE(wrong.error.find("--f\xC3\xB6lder"), std::string::npos);
    const std::pair<const wchar_t*, const char*> places[] = {
        {L"--country XX", "There is no country"},
        {L"--country=DE --area 089", "89, not 089"},
        {L"--country DE --area", "needs a value"},
        {L"--area 1 --area 2", "more than once"},
        {L"--contry DE", "did you mean --country? Try"},
        {L"--read fast", "table or items"},
        {L"--without-prefix none --country DE", "international, national or unknown"}};
    for (const auto& [words, sentence] : places) {
        const harness::Ended bad = harness::run(program + words);
        EXPECT_EQ(bad.exitCode, 2u) << words;
        EXPECT_NE(bad.error.find(sentence), std::string::npos) << bad.error;
    }
}

}  // namespace
