#include <gtest/gtest.h>

#include "filler/ContactText.h"
#include "filler/StoreKeys.h"

namespace {

TEST(ContactText, NamesAContactAsItIsSearched) {
    const std::pair<filler::NameParts, std::wstring> cases[] = {
        {{L"Byron", L"Ada", L"Engines", L"Byron, Ada"}, L"Byron Ada"},
        {{L"", L"Ada", L"Engines", L""}, L"Ada"},
        {{L"Smith, Jr", L"John", L"", L""}, L"Smith, Jr John"},
        {{L" de  la Tour ", L"\u00c9lo\u00efse\t", L"", L""}, L"de la Tour \u00c9lo\u00efse"},
        {{L" ", L"", L"Engines & Co", L"Somebody"}, L"Engines & Co"},
        {{L"", L"", L"", L"Engines\r\nByron"}, L"Engines Byron"},
        {{}, L""},
        {{std::wstring(300, L'x'), L"", L"", L""}, std::wstring(255, L'x')},
        {{std::wstring(254, L'x') + L"\xD83D\xDE00", L"", L"", L""}, std::wstring(254, L'x')},
    };
    for (const auto& [parts, name] : cases) EXPECT_EQ(filler::searchName(parts), name);
}

TEST(ContactText, KeepsNumbersAsTheyAreWrittenOnceEach) {
    const std::vector<std::wstring> written = {
        L"+33 (0)1 23-45", L"", L" 4711\t", L"4711", L"\u00a0", L"04711", std::wstring(256, L'1'),
        L"#31# 0800 CALL"};
    const std::vector<std::wstring> stored = {L"+33 (0)1 23-45", L"4711", L"04711", L"#31# 0800 CALL"};
    EXPECT_EQ(filler::storedNumbers(written), stored);
}

TEST(StoreKeys, StayWithTheirStores) {
    using Keys = std::vector<std::wstring>;
    const struct {
        std::vector<filler::StoreKey> known;
        Keys stores, indexes;
    } cases[] = {
        {{}, {L"A", L"B"}, {L"1", L"2"}},
        {{{L"1", L"A"}, {L"2", L"B"}}, {L"B", L"C"}, {L"2", L"3"}},
        {{{L"pst", L"A"}, {L"7", L"B"}}, {L"C", L"A"}, {L"8", L"pst"}},
        {{{L"1", L"A"}, {L"1", L"B"}, {L"", L"C"}}, {L"A", L"B", L"C"}, {L"1", L"2", L"3"}},
    };
    for (const auto& c : cases) {
        Keys indexes;
        for (const auto& key : filler::storeKeys(c.known, c.stores)) indexes.push_back(key.index);
        EXPECT_EQ(indexes, c.indexes);
    }
}

}  // namespace
