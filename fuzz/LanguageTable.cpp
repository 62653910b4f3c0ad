// The table of languages: whatever the installer wrote, what is read out of it is sound.

#include "support/LanguageTable.h"

#include <algorithm>

#include "fuzz/Input.h"

namespace {

std::wstring written(const zelbar::LanguageTable& table) {
    std::wstring result;
    for (const auto& [index, language] : table) {
        if (!result.empty()) result += L"; ";
        result += std::to_wstring(index) + L"," + language.code + L"," + std::to_wstring(language.resource) +
                  L"," + std::to_wstring(language.charset);
    }
    return result;
}

}  // namespace

bool operator==(const zelbar::Language& a, const zelbar::Language& b) {
    return a.code == b.code && a.resource == b.resource && a.charset == b.charset;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::wstring text = input.text(L"0123456789-+,,;; usfr\t");
    auto [table, messages] = zelbar::splitLanguageTable(text);
    const auto entries = static_cast<std::size_t>(std::count(text.begin(), text.end(), L';')) + 1;
    FUZZ_EXPECT(table.size() <= entries && messages.size() <= entries);
    for (const auto& [index, language] : table) {
        FUZZ_EXPECT(index >= 0);
        FUZZ_EXPECT((zelbar::languageAt(table, index) == nullptr) == language.code.empty());
    }
    FUZZ_EXPECT(zelbar::languageAt(table, -1) == nullptr);

    // What was understood is understood again.
    std::erase_if(table, [](const auto& slot) { return slot.second.code.empty(); });
    const auto again = zelbar::splitLanguageTable(written(table)).table;
    FUZZ_EXPECT(table.empty() || std::equal(table.begin(), table.end(), again.begin(), again.end(),
                                            [](const auto& a, const auto& b) {
                                                return a.first == b.first && a.second == b.second;
                                            }));
    return 0;
}
