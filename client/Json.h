#pragma once

#include <string>
#include <string_view>

namespace pimcall::json {

/// A text with its quotation marks and everything escaped that needs it.
std::wstring quoted(std::wstring_view text);

/// Builds an object member by member, in the order in which they are added.
class Object {
  public:
    Object& text(std::wstring_view name, std::wstring_view value) { return raw(name, quoted(value)); }
    Object& number(std::wstring_view name, long value) { return raw(name, std::to_wstring(value)); }
    Object& boolean(std::wstring_view name, bool value) { return raw(name, value ? L"true" : L"false"); }
    /// A value that is JSON already.
    Object& raw(std::wstring_view name, std::wstring_view json);

    std::wstring str() const { return L"{" + members_ + L"}"; }

  private:
    std::wstring members_;
};

/// Builds an array of values that are JSON already.
class Array {
  public:
    void add(std::wstring_view json);

    std::wstring str() const { return L"[" + elements_ + L"]"; }

  private:
    std::wstring elements_;
};

/// An array of what `toJson` makes of each element.
template <class Range, class ToJson>
std::wstring array(const Range& range, const ToJson& toJson) {
    Array result;
    for (const auto& element : range) result.add(toJson(element));
    return result.str();
}

}  // namespace pimcall::json
