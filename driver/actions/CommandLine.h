#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelbar {

/// A command line that begins with the user's own text; details of a call stand somewhere behind it. Who
/// calls can choose the details, so they must never decide what is started.
class CommandLine {
  public:
    /// Where a file's name may stand in the line.
    struct NamePlace {
        size_t begin, end;
        /// Where what follows the name begins.
        size_t rest;
    };

    explicit CommandLine(std::wstring own) : text_(std::move(own)), ownLength_(text_.size()) {}

    /// Replaces every placeholder, also one that came with a detail, by a detail of the call.
    void fillWithDetail(std::wstring_view placeholder, const std::wstring& detail);
    /// The same with a word of the driver's: within the user's own text it counts as his.
    void fillWithWord(std::wstring_view placeholder, const std::wstring& word);
    /// Puts more of the user's own text in front.
    void prepend(const std::wstring& own);

    const std::wstring& text() const { return text_; }
    std::wstring text(const NamePlace& place) const {
        return text_.substr(place.begin, place.end - place.begin);
    }
    /// The details that stand in the line.
    const std::wstring& details() const { return details_; }

    /// Where the name of what is to be started may stand, in the order in which the system would try it:
    /// between quotation marks, or else from the start to any of the blanks. What does not end within the
    /// user's own text is none.
    std::vector<NamePlace> namePlaces() const;

  private:
    std::wstring text_;
    size_t ownLength_;
    std::wstring details_;
};

}  // namespace zelbar
