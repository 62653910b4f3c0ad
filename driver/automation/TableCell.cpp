#include "automation/TableCell.h"

#include <cstddef>
#include <cwctype>

#include "automation/Bstr.h"

namespace zelbar {

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

std::optional<std::wstring> cellText(const VARIANT& cell) {
    constexpr auto kNotFound = static_cast<SCODE>(0x8004010FUL);
    if (cell.vt == VT_BSTR) {
        std::wstring text = textOf(cell.bstrVal);
        if (text.size() < kMayBeCut) return text;
        return std::nullopt;
    }
    if (cell.vt == VT_ERROR && cell.scode != kNotFound) return std::nullopt;
    return std::wstring();
}

std::wstring cellIdentifier(const VARIANT& cell) {
    if (cell.vt == (VT_ARRAY | VT_UI1) && cell.parray && SafeArrayGetDim(cell.parray) == 1)
        return digitsOf(*cell.parray);
    std::wstring text = cell.vt == VT_BSTR ? textOf(cell.bstrVal) : std::wstring();
    for (wchar_t& c : text) c = static_cast<wchar_t>(std::towupper(c));
    return text;
}

}  // namespace zelbar
