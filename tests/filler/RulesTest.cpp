#include <gtest/gtest.h>

#include "automation/Com.h"
#include "filler/BusyRetry.h"
#include "filler/ContactText.h"
#include "filler/OutlookFault.h"
#include "filler/StoreKeys.h"

namespace {

using filler::FaultScope;

TEST(ContactText, NamesAContactAsItIsSearched) {
    struct Case {
        filler::NameParts parts;
        std::wstring name;
    };
    const Case cases[] = {
        {{L"Byron", L"Ada", L"Engines", L"Byron, Ada"}, L"Byron Ada"},
        {{L"Byron", L"", L"Engines", L""}, L"Byron"},
        {{L"", L"Ada", L"Engines", L""}, L"Ada"},
        {{L"Smith, Jr", L"John", L"", L""}, L"Smith, Jr John"},
        {{L" de  la Tour ", L"\u00c9lo\u00efse\t", L"", L""}, L"de la Tour \u00c9lo\u00efse"},
        {{L" ", L"", L"Engines & Co", L"Somebody"}, L"Engines & Co"},
        {{L"", L"", L"", L"Engines\r\nByron"}, L"Engines Byron"},
        {{}, L""},
        {{std::wstring(300, L'x'), L"", L"", L""}, std::wstring(255, L'x')},
        {{std::wstring(254, L'x') + L"\xD83D\xDE00", L"", L"", L""}, std::wstring(254, L'x')},
    };
    for (const Case& c : cases) EXPECT_EQ(filler::searchName(c.parts), c.name);
}

TEST(ContactText, KeepsNumbersAsTheyAreWrittenOnceEach) {
    const std::vector<std::wstring> written = {
        L"+33 (0)1 23-45", L"", L" 4711\t", L"4711", L"\u00a0", L"04711", std::wstring(256, L'1'),
        L"#31# 0800 CALL"};
    const std::vector<std::wstring> stored = {L"+33 (0)1 23-45", L"4711", L"04711", L"#31# 0800 CALL"};
    EXPECT_EQ(filler::storedNumbers(written), stored);
}

TEST(StoreKeys, StayWithTheirStores) {
    const auto keysOf = [](const std::vector<filler::StoreKey>& known,
                           const std::vector<std::wstring>& stores) {
        std::vector<std::wstring> indexes;
        for (const filler::StoreKey& key : filler::storeKeys(known, stores)) indexes.push_back(key.index);
        return indexes;
    };
    using Keys = std::vector<std::wstring>;
    EXPECT_EQ(keysOf({}, {L"A", L"B"}), (Keys{L"1", L"2"}));
    EXPECT_EQ(keysOf({{L"1", L"A"}, {L"2", L"B"}}, {L"B", L"C"}), (Keys{L"2", L"3"}));
    EXPECT_EQ(keysOf({{L"pst", L"A"}, {L"7", L"B"}}, {L"C", L"A"}), (Keys{L"8", L"pst"}));
    EXPECT_EQ(keysOf({{L"1", L"A"}, {L"1", L"B"}, {L"", L"C"}}, {L"A", L"B", L"C"}),
              (Keys{L"1", L"2", L"3"}));
}

TEST(OutlookFault, TellsAnItemFromOutlook) {
    struct Case {
        unsigned long number;
        FaultScope scope;
    };
    const Case cases[] = {
        {0x8004010F, FaultScope::Gone},    {0xC1F4010F, FaultScope::Gone},
        {0x80040107, FaultScope::Gone},    {0x8004010A, FaultScope::Gone},
        {462, FaultScope::Outlook},        {429, FaultScope::Outlook},
        {0x80010001, FaultScope::Outlook}, {0x8001010A, FaultScope::Outlook},
        {0x80010108, FaultScope::Outlook}, {0x800706BE, FaultScope::Outlook},
        {0x8004011C, FaultScope::Outlook}, {0xC1F4011D, FaultScope::Outlook},
        {0x80080005, FaultScope::Outlook}, {0x80010105, FaultScope::Object},
        {0x80004005, FaultScope::Object},  {70, FaultScope::Object},
        {438, FaultScope::Object},         {0x80070057, FaultScope::Object},
        {0xA72300FC, FaultScope::Object},
    };
    for (const Case& c : cases) {
        const zelbar::Fault fault{static_cast<long>(c.number), {}, {}};
        EXPECT_EQ(filler::scopeOf(fault), c.scope) << std::hex << c.number;
    }
}

TEST(BusyRetry, TriesForSomeSeconds) {
    zelbar::Com<IMessageFilter> filter;
    {
        const filler::BusyRetry retry;
        CoRegisterMessageFilter(nullptr, filter.put());
        ASSERT_TRUE(filter);
        CoRegisterMessageFilter(filter.get(), nullptr);
    }
    constexpr DWORD kLeastPause = 100, kGiveUp = static_cast<DWORD>(-1);
    for (const DWORD reason : {SERVERCALL_REJECTED, SERVERCALL_RETRYLATER}) {
        const DWORD pause = filter->RetryRejectedCall(nullptr, 0, reason);
        EXPECT_GE(pause, kLeastPause);
        EXPECT_NE(pause, kGiveUp);
        EXPECT_EQ(filter->RetryRejectedCall(nullptr, 10000, reason), kGiveUp);
    }
    zelbar::Com<IMessageFilter> left;
    CoRegisterMessageFilter(nullptr, left.put());
    EXPECT_FALSE(left);
}

}  // namespace
