#include "standin/dao/Like.h"

#include <algorithm>

#include "standin/dao/DaoError.h"
#include "standin/dao/Text.h"

namespace standin::dao {
namespace {

[[noreturn]] void raiseBadPattern() {
    throw DaoError{93, L"Invalid pattern string"};
}

bool inRange(wchar_t unit, wchar_t first, wchar_t last) {
    if (first == last) return foldCase(unit) == foldCase(first);
    return compareSorted({&first, 1}, {&unit, 1}) <= 0 && compareSorted({&unit, 1}, {&last, 1}) <= 0;
}

}  // namespace

LikePattern::LikePattern(std::wstring_view pattern) {
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        switch (pattern[i]) {
            case L'*':
                // Two stars mean what one means, and one costs less to match.
                if (steps_.empty() || steps_.back().kind != Kind::anyRun) steps_.push_back({Kind::anyRun});
                break;
            case L'?':
                steps_.push_back({Kind::anyOne});
                break;
            case L'#':
                steps_.push_back({Kind::digit});
                break;
            case L'[':
                i = addList(pattern, i);
                break;
            default:
                steps_.push_back({Kind::exactly, foldCase(pattern[i])});
        }
    }
    for (const Step& step : steps_) {
        if (step.kind != Kind::exactly) break;
        prefix_ += step.unit;
    }
}

std::size_t LikePattern::addList(std::wstring_view pattern, std::size_t open) {
    const std::size_t close = pattern.find(L']', open + 1);
    if (close == std::wstring_view::npos) raiseBadPattern();
    std::wstring_view list = pattern.substr(open + 1, close - open - 1);
    if (list.empty()) return close;

    Step step{Kind::oneOf};
    // A lone "!" is a list of that one character.
    if (list.front() == L'!' && list.size() > 1) {
        step.kind = Kind::noneOf;
        list.remove_prefix(1);
    }
    for (std::size_t i = 0; i < list.size(); ++i) {
        const bool isRange = i + 2 < list.size() && list[i + 1] == L'-';
        const wchar_t last = list[isRange ? i + 2 : i];
        if (isRange && compareSorted({&list[i], 1}, {&last, 1}) > 0) raiseBadPattern();
        step.ranges.push_back({list[i], last});
        if (isRange) i += 2;
    }
    if (step.kind == Kind::oneOf && list.size() == 1) step = {Kind::exactly, foldCase(list.front())};
    steps_.push_back(std::move(step));
    return close;
}

bool LikePattern::fits(const Step& step, wchar_t unit) {
    const auto covers = [unit](const Range& range) { return inRange(unit, range.first, range.last); };
    switch (step.kind) {
        case Kind::exactly:
            return foldCase(unit) == step.unit;
        case Kind::digit:
            return unit >= L'0' && unit <= L'9';
        case Kind::oneOf:
            return std::any_of(step.ranges.begin(), step.ranges.end(), covers);
        case Kind::noneOf:
            return std::none_of(step.ranges.begin(), step.ranges.end(), covers);
        default:
            return true;
    }
}

bool LikePattern::matches(std::wstring_view text) const {
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t step = 0;
    std::size_t at = 0;
    std::size_t lastStar = kNone;
    std::size_t runEnd = 0;
    while (at < text.size()) {
        if (step < steps_.size() && steps_[step].kind == Kind::anyRun) {
            lastStar = step++;
            runEnd = at;
        } else if (step < steps_.size() && fits(steps_[step], text[at])) {
            ++step;
            ++at;
        } else if (lastStar != kNone) {
            // Only the last star need grow: earlier ones have done their part.
            step = lastStar + 1;
            at = ++runEnd;
        } else {
            return false;
        }
    }
    while (step < steps_.size() && steps_[step].kind == Kind::anyRun) ++step;
    return step == steps_.size();
}

}  // namespace standin::dao
