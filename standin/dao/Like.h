#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace standin::dao {

/// A pattern of Jet's Like: * any run, ? one character, # one digit, [list] one of, [!list] none of.
class LikePattern {
  public:
    /// Throws error 93 when a list is not closed or a range runs backwards.
    explicit LikePattern(std::wstring_view pattern);

    bool matches(std::wstring_view text) const;

    /// The characters that every match begins with.
    const std::wstring& prefix() const { return prefix_; }
    /// True when the pattern holds no wildcard: only prefix() itself matches, in any case.
    bool isExact() const { return prefix_.size() == steps_.size(); }

  private:
    enum class Kind { exactly, anyRun, anyOne, digit, oneOf, noneOf };
    struct Range {
        wchar_t first;
        wchar_t last;
    };
    struct Step {
        Kind kind;
        wchar_t unit = L'\0';
        std::vector<Range> ranges{};
    };

    std::size_t addList(std::wstring_view pattern, std::size_t open);
    static bool fits(const Step& step, wchar_t unit);

    std::vector<Step> steps_;
    std::wstring prefix_;
};

}  // namespace standin::dao
