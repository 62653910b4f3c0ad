#include "standin/outlook/mailbox/ContactNames.h"

#include <algorithm>
#include <span>

#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook {
namespace {

constexpr const wchar_t* kTitles[] = {L"Dr.", L"Dr",  L"Miss", L"Mr.",   L"Mr",  L"Mrs.",
                                      L"Mrs", L"Ms.", L"Ms",   L"Prof.", L"Prof"};
constexpr const wchar_t* kSuffixes[] = {L"I", L"II", L"III", L"Jr.", L"Jr", L"Sr.", L"Sr"};

std::wstring part(const Fields& fields, std::wstring_view name) {
    const auto found = fields.find(name);
    return found == fields.end() ? std::wstring() : found->second;
}

std::wstring joined(std::span<const std::wstring> words) {
    std::wstring text;
    for (const std::wstring& word : words) {
        if (word.empty()) continue;
        if (!text.empty()) text += L' ';
        text += word;
    }
    return text;
}

std::vector<std::wstring> wordsOf(std::wstring_view text) {
    std::vector<std::wstring> words;
    std::wstring word;
    for (const wchar_t letter : std::wstring(text) + L' ') {
        if (letter != L' ' && letter != L'\t' && letter != L'\r' && letter != L'\n') {
            word += letter;
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
    }
    return words;
}

bool isOneOf(const std::wstring& word, std::span<const wchar_t* const> list) {
    return std::ranges::any_of(list, [&](const wchar_t* entry) { return sameText(word, entry); });
}

std::wstring takeTitle(std::vector<std::wstring>& words) {
    if (words.size() < 2 || !isOneOf(words.front(), kTitles)) return L"";
    std::wstring title = std::move(words.front());
    words.erase(words.begin());
    return title;
}

std::wstring takeSuffix(std::vector<std::wstring>& words) {
    if (words.size() < 2 || !isOneOf(words.back(), kSuffixes)) return L"";
    std::wstring suffix = std::move(words.back());
    words.pop_back();
    return suffix;
}

}  // namespace

void setFullName(Fields& fields, std::wstring_view fullName) {
    const std::size_t comma = fullName.find(L',');
    std::wstring last;
    std::vector<std::wstring> words;
    if (comma == std::wstring_view::npos) {
        words = wordsOf(fullName);
    } else {
        // "Byron, Ada" names the family first; what follows the comma is the rest, unless it is only a
        // suffix.
        words = wordsOf(fullName.substr(comma + 1));
        std::vector<std::wstring> before = wordsOf(fullName.substr(0, comma));
        if (words.size() == 1 && isOneOf(words.front(), kSuffixes)) {
            before.push_back(words.front());
            words = std::move(before);
        } else {
            last = joined(before);
        }
    }
    fields[L"Title"] = takeTitle(words);
    fields[L"Suffix"] = takeSuffix(words);
    if (last.empty() && words.size() > 1) {
        last = words.back();
        words.pop_back();
    }
    fields[L"FirstName"] = words.empty() ? L"" : words.front();
    fields[L"MiddleName"] = words.size() > 1 ? joined(std::span(words).subspan(1)) : L"";
    fields[L"LastName"] = last;
}

std::wstring fullNameOf(const Fields& fields) {
    const std::wstring parts[] = {part(fields, L"Title"), part(fields, L"FirstName"),
                                  part(fields, L"MiddleName"), part(fields, L"LastName"),
                                  part(fields, L"Suffix")};
    return joined(parts);
}

std::wstring lastNameAndFirstNameOf(const Fields& fields) {
    const std::wstring first = part(fields, L"FirstName");
    const std::wstring last = part(fields, L"LastName");
    if (first.empty() || last.empty()) return first + last;
    return last + L", " + first;
}

std::wstring defaultFileAs(const Fields& fields) {
    const std::wstring given[] = {part(fields, L"FirstName"), part(fields, L"MiddleName")};
    const std::wstring first = joined(given);
    const std::wstring last = part(fields, L"LastName");
    if (first.empty() && last.empty()) return part(fields, L"CompanyName");
    if (first.empty() || last.empty()) return first + last;
    return last + L", " + first;
}

void completeNames(Fields& fields, std::wstring_view previousDefaultFileAs) {
    fields[L"FullName"] = fullNameOf(fields);
    fields[L"LastNameAndFirstName"] = lastNameAndFirstNameOf(fields);
    std::wstring& fileAs = fields[L"FileAs"];
    if (fileAs.empty() || fileAs == previousDefaultFileAs) fileAs = defaultFileAs(fields);
}

}  // namespace standin::outlook
