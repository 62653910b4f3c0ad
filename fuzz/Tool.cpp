// pimcall's command line and the JSON that it writes.

#include "client/Arguments.h"
#include "client/Failure.h"
#include "client/Json.h"
#include "client/Text.h"
#include "fuzz/Input.h"

namespace {

int hexadecimal(wchar_t c) {
    return c >= L'0' && c <= L'9' ? c - L'0' : c >= L'a' && c <= L'f' ? c - L'a' + 10 : -1;
}

/// A JSON text read back; nothing in it may be what JSON or a terminal would trip over.
std::wstring readBack(std::wstring_view json) {
    FUZZ_EXPECT(json.size() >= 2 && json.starts_with(L'"') && json.ends_with(L'"'));
    json = json.substr(1, json.size() - 2);
    std::wstring text;
    for (std::size_t i = 0; i < json.size(); ++i) {
        FUZZ_EXPECT(json[i] != L'"' && !pimcall::steersScreen(json[i]));
        if (json[i] != L'\\') {
            text += json[i];
            continue;
        }
        FUZZ_EXPECT(++i < json.size());
        if (json[i] == L'u') {
            FUZZ_EXPECT(i + 4 < json.size());
            int unit = 0;
            for (int digit = 0; digit < 4; ++digit) {
                FUZZ_EXPECT(hexadecimal(json[++i]) >= 0);
                unit = unit * 16 + hexadecimal(json[i]);
            }
            text += static_cast<wchar_t>(unit);
        } else {
            FUZZ_EXPECT(std::wstring_view(L"\"\\nt").find(json[i]) != std::wstring_view::npos);
            text += json[i] == L'n' ? L'\n' : json[i] == L't' ? L'\t' : json[i];
        }
    }
    return text;
}

/// With U+FFFD for each half of a pair that stands alone.
std::wstring wellFormed(std::wstring text) {
    const auto isIn = [&](std::size_t i, wchar_t first) {
        return i < text.size() && text[i] >= first && text[i] < first + 0x400;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isIn(i, 0xD800) && isIn(i + 1, 0xDC00))
            ++i;
        else if (isIn(i, 0xD800) || isIn(i, 0xDC00))
            text[i] = 0xFFFD;
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::wstring_view kTexts = L"ab\"\\\n\t\r\x1b\x7f\x85\x202e\x2028\xfffd ";
    fuzz::Input input(data, size);
    const std::wstring text = input.text(kTexts);
    FUZZ_EXPECT(readBack(pimcall::json::quoted(text)) == wellFormed(text));
    for (const wchar_t c : pimcall::oneLine(text)) FUZZ_EXPECT(!pimcall::steersScreen(c));

    constexpr pimcall::Option kKnown[] = {{L"--from", L"NUMBER"}, {L"--quiet", nullptr}};
    std::vector<std::wstring> words;
    for (int count = input.byte() % 6; count > 0; --count) {
        const std::uint8_t choice = input.byte();
        words.push_back((choice % 2 ? kKnown[choice / 2 % 2].name : L"") + input.text(L"-=0a"));
    }
    try {
        const auto arguments = pimcall::Arguments::parse(words, kKnown);
        FUZZ_EXPECT(!arguments.has(L"--from") || !arguments.value(L"--from").empty());
        FUZZ_EXPECT(!arguments.has(L"--quiet") || arguments.value(L"--quiet").empty());
    } catch (const pimcall::UsageError& error) {
        FUZZ_EXPECT(!error.sentence().empty());
    }
    return 0;
}
