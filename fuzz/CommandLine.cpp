// The command line of the action that starts a program: who calls must never decide what is started.

#include "actions/CommandLine.h"

#include "fuzz/Input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr wchar_t kCallers = L'\x2022';  // stands in details only
    fuzz::Input input(data, size);
    const std::wstring own = input.text(L"ab.\\ \"\t%1%2");
    std::wstring detail;
    for (const wchar_t c : input.text(L"ab.\\ \"\t%12")) (detail += kCallers) += c;
    const std::wstring word = input.text(L"ab \"%1");
    const bool wordFirst = input.byte() % 2;

    zelbar::CommandLine line(own);
    if (wordFirst) line.fillWithWord(L"%2", word);
    line.fillWithDetail(L"%1", detail);
    if (!wordFirst) line.fillWithWord(L"%2", word);
    line.prepend(input.text(L"ab \""));

    std::size_t last = 0;
    for (const auto& place : line.namePlaces()) {
        FUZZ_EXPECT(place.begin <= place.end && place.end <= place.rest && place.rest <= line.text().size());
        FUZZ_EXPECT(place.end >= last);
        last = place.end;
        FUZZ_EXPECT(line.text().substr(0, place.end).find(kCallers) == std::wstring::npos);
    }
    FUZZ_EXPECT((line.text().find(kCallers) == std::wstring::npos) == line.details().empty());
    return 0;
}
