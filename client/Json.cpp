#include "client/Json.h"

#include "client/Text.h"

namespace pimcall::json {
namespace {

constexpr wchar_t kReplacement = 0xFFFD;

std::wstring escaped(wchar_t unit) {
    constexpr wchar_t kDigits[] = L"0123456789abcdef";
    std::wstring result = L"\\u";
    for (int shift = 12; shift >= 0; shift -= 4) result += kDigits[(unit >> shift) & 0xF];
    return result;
}

bool isHighSurrogate(wchar_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool isLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

std::wstring quoted(std::wstring_view text) {
    std::wstring result = L"\"";
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t unit = text[i];
        if (unit == L'"' || unit == L'\\') {
            (result += L'\\') += unit;
        } else if (unit == L'\n') {
            result += L"\\n";
        } else if (unit == L'\t') {
            result += L"\\t";
        } else if (steersScreen(unit)) {
            result += escaped(unit);
        } else if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            result += unit;
            result += text[++i];
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            result += kReplacement;
        } else {
            result += unit;
        }
    }
    return result += L'"';
}

Object& Object::raw(std::wstring_view name, std::wstring_view json) {
    if (!members_.empty()) members_ += L',';
    members_ += quoted(name);
    members_ += L':';
    members_ += json;
    return *this;
}

void Array::add(std::wstring_view json) {
    if (!elements_.empty()) elements_ += L',';
    elements_ += json;
}

}  // namespace pimcall::json
