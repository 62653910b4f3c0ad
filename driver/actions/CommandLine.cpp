#include "actions/CommandLine.h"

#include <algorithm>

namespace zelbar {

void CommandLine::fillWithDetail(std::wstring_view placeholder, const std::wstring& detail) {
    for (size_t at = text_.find(placeholder); at != std::wstring::npos;
         at = text_.find(placeholder, at + detail.size())) {
        text_.replace(at, placeholder.size(), detail);
        ownLength_ = std::min(ownLength_, at);
        details_ += detail;
    }
}

void CommandLine::fillWithWord(std::wstring_view placeholder, const std::wstring& word) {
    for (size_t at = text_.find(placeholder); at != std::wstring::npos;
         at = text_.find(placeholder, at + word.size())) {
        text_.replace(at, placeholder.size(), word);
        if (at + placeholder.size() <= ownLength_)
            ownLength_ = ownLength_ - placeholder.size() + word.size();
        else
            ownLength_ = std::min(ownLength_, at);
    }
}

void CommandLine::prepend(const std::wstring& own) {
    text_.insert(0, own);
    ownLength_ += own.size();
}

std::vector<CommandLine::NamePlace> CommandLine::namePlaces() const {
    constexpr wchar_t kBlanks[] = L" \t";
    const std::wstring_view own = std::wstring_view(text_).substr(0, ownLength_);
    const bool allOwn = ownLength_ == text_.size();
    std::vector<NamePlace> places;
    if (own.starts_with(L'"')) {
        const size_t quote = own.find(L'"', 1);
        if (quote != std::wstring_view::npos)
            places.push_back({1, quote, quote + 1});
        else if (allOwn)
            places.push_back({1, own.size(), own.size()});
        return places;
    }
    for (size_t blank = own.find_first_of(kBlanks); blank != std::wstring_view::npos;
         blank = own.find_first_of(kBlanks, blank + 1))
        places.push_back({0, blank, blank});
    if (allOwn) places.push_back({0, own.size(), own.size()});
    return places;
}

}  // namespace zelbar
