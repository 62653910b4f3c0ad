// Fields of the call information string.

#include "search/TaggedValue.h"

#include <stdexcept>

#include "fuzz/Input.h"

namespace {

/// The rule once more, character by character.
std::wstring expected(const std::wstring& data, const std::wstring& key) {
    for (std::size_t at = 0; at + key.size() <= data.size(); ++at) {
        if (data.compare(at, key.size(), key) != 0) continue;
        std::wstring value;
        for (std::size_t i = at + key.size(); i < data.size(); ++i) {
            if (data[i] == L';') return value;
            value += data[i];
        }
        if (!value.empty()) value.pop_back();  // an unclosed field loses its last character
        return value;
    }
    return {};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::wstring_view kAlphabet = L"TYPESARD=;=;x ";
    fuzz::Input input(data, size);
    const bool isLong = input.byte() == 1;
    const std::wstring key = input.text(kAlphabet);
    std::wstring text = input.text(kAlphabet);
    if (isLong) text.insert(0, 32767 - text.size() % 3, L'x');
    try {
        const std::wstring value = zelbar::GetTaggedValue(text, key);
        FUZZ_EXPECT(text.size() <= 32767);
        FUZZ_EXPECT(value == expected(text, key));
    } catch (const std::overflow_error&) {
        FUZZ_EXPECT(text.size() > 32767);
    }
    return 0;
}
