#include "filler/OutlookFault.h"

#include <algorithm>
#include <iterator>

namespace filler {
namespace {

/// Older Outlooks leave private bits in their numbers, other ones from call to call.
constexpr unsigned long kSignificant = 0x800FFFFFUL;

/// The object that was asked for: not found, no such identifier, unknown identifier, deleted.
constexpr unsigned long kGone[] = {0x8004010FUL, 0x80040107UL, 0x80040201UL, 0x8004010AUL};

/// The store behind it: network error, not open, offline; and Outlook while it starts or goes.
constexpr unsigned long kOutlook[] = {0x80040115UL, 0x8004011CUL, 0x8004011DUL, 0x80080005UL};

/// As run-time errors: out of memory, no such server, server gone.
constexpr unsigned long kRuntime[] = {7, 429, 462};

template <std::size_t size>
bool isIn(const unsigned long (&numbers)[size], unsigned long number) {
    return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}

/// The call did not arrive or did not come back: COM's own codes and those of the transport below it.
bool isTransport(unsigned long number) {
    // Outlook stumbled over this one call, so over this one item.
    constexpr unsigned long kServerFault = 0x80010105UL;
    if (number == kServerFault) return false;
    const unsigned long facility = number >> 16;
    const unsigned long code = number & 0xFFFFUL;
    return facility == 0x8001UL || (facility == 0x8007UL && code >= 1700 && code < 1900);
}

}  // namespace

FaultScope scopeOf(const zelbar::Fault& fault) {
    const auto number = static_cast<unsigned long>(fault.number);
    const unsigned long code = number & kSignificant;
    if (isIn(kGone, code)) return FaultScope::Gone;
    if (isIn(kRuntime, number) || isIn(kOutlook, code) || isTransport(number)) return FaultScope::Outlook;
    return FaultScope::Object;
}

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
