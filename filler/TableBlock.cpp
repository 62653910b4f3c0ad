#include "filler/TableBlock.h"

#include <windows.h>

#include <cwctype>
#include <utility>

#include "automation/Bstr.h"

namespace filler {
namespace {

/// A store cuts texts at 255 characters, or at 255 bytes of two a character.
constexpr std::size_t kMayBeCut = 127;

std::wstring digitsOf(const SAFEARRAY& bytes) {
    std::wstring digits;
    const auto* data = static_cast<const unsigned char*>(bytes.pvData);
    for (ULONG i = 0; i < bytes.rgsabound[0].cElements; ++i)
        for (const int half : {data[i] / 16, data[i] % 16}) digits += L"0123456789ABCDEF"[half];
    return digits;
}

}  // namespace

std::optional<std::wstring> TableBlock::text(std::size_t row, std::size_t column) const {
    constexpr auto kNotFound = static_cast<SCODE>(0x8004010FUL);
    const VARIANT& value = grid_.cell(row, column);
    if (value.vt == VT_BSTR) {
        std::wstring text = zelbar::textOf(value.bstrVal);
        if (text.size() < kMayBeCut) return text;
        return std::nullopt;
    }
    if (value.vt == VT_ERROR && value.scode != kNotFound) return std::nullopt;
    return std::wstring();
}

std::wstring TableBlock::identifier(std::size_t row, std::size_t column) const {
    const VARIANT& value = grid_.cell(row, column);
    if (value.vt == (VT_ARRAY | VT_UI1) && value.parray && SafeArrayGetDim(value.parray) == 1)
        return digitsOf(*value.parray);
    std::wstring text = value.vt == VT_BSTR ? zelbar::textOf(value.bstrVal) : std::wstring();
    for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
    return text;
}

}  // namespace filler
