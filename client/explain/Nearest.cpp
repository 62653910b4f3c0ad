#include "client/explain/Nearest.h"

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <sstream>
#include <utility>

#include "numbers/HomePlace.h"
#include "numbers/PresentedForms.h"

namespace pimcall::explain {
namespace {

constexpr std::size_t kMostShown = 5;
/// So many equal digits at the end are most likely the same telephone.
constexpr std::size_t kFewestEqualDigits = 6;

enum Points {
    kFarthest = 1,
    kOtherOrder = 50,
    kPart = 60,
    kBeginning = 70,
    kLetterOnly = 80,
    kSameDigits = 90
};

std::wstring digitsOf(const std::wstring& text) {
    std::wstring digits;
    std::ranges::copy_if(text, std::back_inserter(digits), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    return digits;
}

std::wstring inQuotes(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

std::wstring folded(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

/// Words without what stands between them, in alphabetical order.
std::vector<std::wstring> wordsOf(const std::wstring& text) {
    std::wstring spaced = folded(text);
    std::ranges::replace_if(
        spaced, [](wchar_t c) { return c == L',' || c == L'*' || c == L'.'; }, L' ');
    std::wistringstream stream(spaced);
    std::vector<std::wstring> words;
    for (std::wstring word; stream >> word;) words.push_back(word);
    std::ranges::sort(words);
    return words;
}

/// Whether fillcache, run now, would enter the searched form for a row's number.
class Forms {
  public:
    Forms() {
        try {
            presented_.emplace(numbers::findHomePlace({}).place);
        } catch (const numbers::BadPlace&) {
            // Then nothing is known of forms.
        }
    }
    bool has(const std::wstring& number, const std::wstring& searched) const {
        if (!presented_) return false;
        const std::vector<std::wstring> forms = presented_->of(number);
        return std::ranges::find(forms, searched) != forms.end();
    }

  private:
    std::optional<numbers::PresentedForms> presented_;
};

}  // namespace

Nearness nearNumber(const std::wstring& searched, const std::wstring& number) {
    const std::wstring ours = digitsOf(searched), theirs = digitsOf(number);
    if (ours.empty() || theirs.empty()) return {};
    if (ours == theirs)
        return {kSameDigits, L"the same digits, written otherwise: the search compares every sign, and " +
                                 inQuotes(number) + L" is not " + inQuotes(searched)};
    if (theirs.starts_with(ours) && ours.size() >= kFewestEqualDigits)
        return {kBeginning, L"it goes on behind the searched digits: " + inQuotes(searched + L"*") +
                                L" would ask for that"};
    const auto equal = static_cast<std::size_t>(
        std::mismatch(ours.rbegin(), ours.rend(), theirs.rbegin(), theirs.rend()).first - ours.rbegin());
    if (equal < std::min(kFewestEqualDigits, ours.size()) || equal < 3) return {};
    const std::wstring end = ours.substr(ours.size() - equal);
    return {kFarthest + static_cast<int>(std::min<std::size_t>(equal, 40)),
            L"the same last " + std::to_wstring(equal) + L" digits (" + end + L"), another beginning"};
}

Nearness nearName(const std::wstring& searched, const std::wstring& name) {
    const std::wstring ours = folded(searched), theirs = folded(name);
    const std::vector<std::wstring> words = wordsOf(searched), nameWords = wordsOf(name);
    if (words.empty() || theirs.empty()) return {};
    if (words == nameWords)
        return {kLetterOnly, L"the same words, in another order or with other signs: names are stored as " +
                                 inQuotes(L"Last First")};
    if (theirs.starts_with(ours))
        return {kBeginning, L"the name goes on: " + inQuotes(searched + L"*") + L" would ask for that"};
    if (theirs.find(ours) != std::wstring::npos)
        return {kPart, L"the searched text stands inside the name: " + inQuotes(L"*" + searched + L"*") +
                           L" would ask for that"};
    if (std::ranges::includes(nameWords, words))
        return {kOtherOrder, L"the name has these words among others"};
    return {};
}

std::vector<NearRow> nearestRows(const CacheReader& cache, SearchKind kind, const std::wstring& text) {
    const bool byNumber = kind == SearchKind::Number;
    std::vector<std::pair<int, NearRow>> found;
    const auto nearer = [](const auto& one, const auto& other) { return one.first > other.first; };
    cache.rows([&](const CacheReader::Row& row) {
        const Nearness nearness = byNumber ? nearNumber(text, row.number) : nearName(text, row.name);
        if (nearness.points == 0) return true;
        const std::pair<int, NearRow> entry{nearness.points, {row, nearness.reason}};
        found.insert(std::ranges::upper_bound(found, entry, nearer), entry);
        if (found.size() > kMostShown) found.pop_back();
        return true;
    });
    const Forms forms;
    std::vector<NearRow> rows;
    for (auto& [points, row] : found) {
        if (byNumber && forms.has(row.row.number, text))
            row.reason += L"; fillcache, run now, would enter the searched form as well";
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace pimcall::explain
