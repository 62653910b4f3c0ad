#include "support/Similar.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace zelbar {
namespace {

/// How many letters have to be added, left out, exchanged, or swapped with their neighbour.
std::size_t distance(std::wstring_view one, std::wstring_view other) {
    std::vector<std::size_t> before, last(other.size() + 1), row(other.size() + 1);
    std::iota(last.begin(), last.end(), 0u);
    for (std::size_t i = 1; i <= one.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= other.size(); ++j) {
            const std::size_t exchanged = last[j - 1] + (one[i - 1] == other[j - 1] ? 0 : 1);
            row[j] = std::min({exchanged, last[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && one[i - 1] == other[j - 2] && one[i - 2] == other[j - 1])
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
        before = std::exchange(last, row);
    }
    return last.back();
}

}  // namespace

std::wstring_view similarWord(std::wstring_view word, std::span<const std::wstring_view> known) {
    // Somebody who types a whole screen means none of them.
    constexpr std::size_t kLongest = 40, kShortestBeginning = 2;
    if (word.empty() || word.size() > kLongest) return {};
    std::wstring_view best;
    std::size_t least = word.size() < 5 ? 2 : 3;  // one or two slips are a slip
    for (const std::wstring_view candidate : known) {
        const bool isBeginning = word.size() >= kShortestBeginning && candidate.starts_with(word);
        const std::size_t slips = isBeginning ? 1 : distance(word, candidate);
        if (slips < least) {
            least = slips;
            best = candidate;
        }
    }
    return best;
}

}  // namespace zelbar
