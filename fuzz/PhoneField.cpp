// What people type into the field for a telephone number.

#include <algorithm>

#include "fuzz/Input.h"
#include "numbers/FieldText.h"
#include "numbers/Folding.h"

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

void expectNumber(const std::string& number) {
    const std::size_t digits = number.size() - number.starts_with('+');
    FUZZ_EXPECT(static_cast<std::size_t>(std::count_if(number.begin(), number.end(), isDigit)) == digits);
    FUZZ_EXPECT(digits >= 6);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::wstring field =
        input.text(L"0123456789+()/-., xeEtTabcfolr;:\t\x00A0\x2013\xFF0B\x0663\x200E");
    const std::wstring plain = numbers::folded(field);
    FUZZ_EXPECT(numbers::folded(plain) == plain);

    std::size_t digits = 0;
    for (const std::string& number : numbers::numbersIn(field)) {
        expectNumber(number);
        digits += number.size() - number.starts_with('+');
    }
    // No digit is made up, but a number may be given once with and once without its extension.
    const auto written = static_cast<std::size_t>(
        std::count_if(plain.begin(), plain.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; }));
    FUZZ_EXPECT(digits <= 2 * written);
    if (const std::string vanity = numbers::vanityNumber(field); !vanity.empty()) expectNumber(vanity);
    return 0;
}
