// The files of numbered texts, and the texts that name their entries.

#include "fuzz/Input.h"
#include "support/NumberedText.h"

namespace {

std::string written(const zelbar::TextFile& texts) {
    std::string result;
    for (const auto& [number, text] : texts) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%05d=", number);
        result += digits + text + "\r\n";
    }
    return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::wstring name = input.text(L"#0123456789#a");
    if (const auto split = zelbar::splitNumberedText(name)) {
        wchar_t prefix[16];
        std::swprintf(prefix, 16, L"#%05d#", split->number);
        FUZZ_EXPECT(prefix + std::wstring(split->defaultText) == name);
    }

    const std::string file(input.rest());
    const zelbar::TextFile texts = zelbar::parseTextFile(file);
    for (const auto& [number, text] : texts) {
        FUZZ_EXPECT(number >= 0 && number <= 99999);
        FUZZ_EXPECT(!text.empty() && text.find('\n') == std::string::npos);
        FUZZ_EXPECT(file.find("=" + text) != std::string::npos);
    }
    FUZZ_EXPECT(zelbar::parseTextFile(written(texts)) == texts);
    return 0;
}
