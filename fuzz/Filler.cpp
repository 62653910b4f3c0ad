// What the filler makes of names, numbers, stores and its command line.

#include <algorithm>

#include "filler/Arguments.h"
#include "filler/ContactText.h"
#include "filler/StoreKeys.h"
#include "fuzz/Input.h"

namespace {

constexpr std::wstring_view kTexts = L"aB \t\r\n0123\x00A0\x2003+-";

bool isTidy(const std::wstring& name) {
    return name.size() <= filler::kWidestText && !name.starts_with(L' ') &&
           name.find(L"  ") == std::wstring::npos &&
           name.find_first_of(L"\t\r\n\x00A0") == std::wstring::npos;
}

void tryStoreKeys(fuzz::Input& input) {
    std::vector<filler::StoreKey> known;
    for (int count = input.byte() % 8; count > 0; --count)
        known.push_back({input.text(L"S012"), input.text(L"abc")});
    std::vector<std::wstring> stores;
    for (int count = input.byte() % 8; count > 0; --count) stores.push_back(input.text(L"abc"));
    const std::set<std::wstring> mayReturn{input.text(L"abc"), input.text(L"abc")};

    const auto keys = filler::storeKeys(known, stores, mayReturn);
    FUZZ_EXPECT(keys.size() >= stores.size());
    std::set<std::wstring> indexes;
    for (const auto& key : keys) FUZZ_EXPECT(!key.index.empty() && indexes.insert(key.index).second);
    for (std::size_t i = 0; i < stores.size(); ++i) FUZZ_EXPECT(keys[i].storeId == stores[i]);
    for (std::size_t i = stores.size(); i < keys.size(); ++i)
        FUZZ_EXPECT(mayReturn.contains(keys[i].storeId));
}

void tryArguments(fuzz::Input& input) {
    constexpr const wchar_t* kOptions[] = {L"--country", L"--area=", L"--outside-line", L"--quiet", L"/?"};
    std::vector<std::wstring> words{L"fillcache"};
    for (int count = input.byte() % 6; count > 0; --count) {
        const std::uint8_t choice = input.byte();
        const std::wstring text = input.text(L"-=049a");
        words.push_back(choice % 2 ? kOptions[choice / 2U % std::size(kOptions)] + text : text);
    }
    std::vector<wchar_t*> pointers;
    for (std::wstring& word : words) pointers.push_back(word.data());
    try {
        filler::parseArguments(static_cast<int>(pointers.size()), pointers.data());
    } catch (const filler::WrongUsage& wrong) {
        FUZZ_EXPECT(!wrong.sentence.empty());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    filler::NameParts parts;
    for (auto part : {&filler::NameParts::last, &filler::NameParts::first, &filler::NameParts::company,
                      &filler::NameParts::fileAs})
        parts.*part = input.text(kTexts);
    FUZZ_EXPECT(isTidy(filler::searchName(parts)));

    std::vector<std::wstring> numbers;
    for (int count = input.byte() % 8; count > 0; --count) numbers.push_back(input.text(kTexts));
    const auto stored = filler::storedNumbers(numbers);
    FUZZ_EXPECT(stored.size() <= numbers.size() && filler::storedNumbers(stored) == stored);
    tryStoreKeys(input);
    tryArguments(input);
    return 0;
}
