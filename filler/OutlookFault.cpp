#include "filler/OutlookFault.h"

namespace filler {
std::wstring explain(const zelbar::Fault& fault) {
    struct Reason {
        unsigned long number;
        const wchar_t* text;
    };
    constexpr const wchar_t* kBusy = L"it is busy, perhaps with an open dialog";
    constexpr const wchar_t* kClosed = L"it was closed meanwhile";
    constexpr Reason kReasons[] = {
        {0x80010001UL, kBusy},
        {0x8001010AUL, kBusy},
        {462, kClosed},
        {0x800706BEUL, kClosed},
        {0x80010108UL, kClosed},
        {429, L"it is not installed"},
        {0x80080005UL, L"it is starting or closing just now, or runs with other rights than this program"},
    };
    for (const Reason& reason : kReasons)
        if (reason.number == static_cast<unsigned long>(fault.number)) return reason.text;
    return fault.description;
}

}  // namespace filler
