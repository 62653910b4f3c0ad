#include "tests/numbers/Spellings.h"

#include <algorithm>
#include <sstream>

#include "support/Encoding.h"
#include "tests/harness/Files.h"

namespace spellings {
namespace {

std::vector<std::wstring> words(const std::wstring& text) {
    std::wistringstream stream(text);
    std::vector<std::wstring> result;
    for (std::wstring word; stream >> word;) result.push_back(word);
    return result;
}

std::wstring field(const std::wstring& line, int number) {
    std::size_t start = 0;
    for (; number > 0; --number) start = line.find(L'|', start) + 1;
    const std::size_t first = line.find_first_not_of(L' ', start);
    const std::size_t end = std::min(line.find(L'|', start), line.size());
    return first >= end ? L"" : line.substr(first, line.find_last_not_of(L' ', end - 1) + 1 - first);
}

numbers::Place placeOf(const std::wstring& home) {
    numbers::Place place;
    for (const std::wstring& word : words(home)) {
        if (word == L"?") continue;
        if (word == L"int")
            place.withoutPrefix = numbers::WithoutPrefix::International;
        else if (word == L"nat")
            place.withoutPrefix = numbers::WithoutPrefix::National;
        else if (word.starts_with(L"out="))
            place.outsideLine = word.substr(4);
        else
            (place.region.empty() ? place.region : place.areaCode) = word;
    }
    return place;
}

}  // namespace

std::vector<Case> all() {
    std::wistringstream lines(zelbar::wide(harness::readFile(SPELLINGS_FILE)));
    std::vector<Case> cases;
    for (std::wstring line; std::getline(lines, line);) {
        if (line.empty() || line[0] == L'#') continue;
        const std::wstring home = field(line, 0);
        cases.push_back({home, placeOf(home), field(line, 1), words(field(line, 2)), words(field(line, 3))});
    }
    return cases;
}

}  // namespace spellings
