#include "automation/OutlookFaults.h"

#include <algorithm>
#include <initializer_list>

namespace zelbar {

namespace {

/// Older Outlooks leave private bits in their numbers, other ones from call to call.
constexpr unsigned long kSignificant = 0x800FFFFFUL;

unsigned long numberOf(const Fault& fault) {
    return static_cast<unsigned long>(fault.number);
}

bool isOneOf(unsigned long number, std::initializer_list<unsigned long> numbers) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

/// The call did not arrive or did not come back: COM's own numbers and those of the transport below it.
bool isTransport(unsigned long number) {
    // Outlook stumbled over this one call, so over this one object.
    constexpr unsigned long kServerFault = 0x80010105UL;
    if (number == kServerFault) return false;
    const unsigned long facility = number >> 16;
    const unsigned long code = number & 0xFFFFUL;
    return facility == 0x8001UL || (facility == 0x8007UL && code >= 1700 && code < 1900);
}

}  // namespace

bool saysItemGone(const Fault& fault) {
    return isOneOf(numberOf(fault) & kSignificant,
                   {
                       0x8004010FUL,  // nothing has this identifier
                       0x80040107UL,  // not an identifier of this store's kind
                       0x80040201UL,  // no store claims it
                       0x8004010AUL,  // deleted since it was opened
                   });
}

bool saysServerGone(const Fault& fault) {
    return isOneOf(numberOf(fault), {
                                        462,           // nothing answers behind the reference
                                        0x80010007UL,  // the server died
                                        0x80010012UL,  // the same, the call not carried out
                                        0x80010108UL,  // disconnected from its clients
                                        0x800706B5UL,  // the interface is not served any more
                                        0x800706BEUL,  // it died in the middle of a call
                                        0x800706BFUL,  // the same, the call not carried out
                                        static_cast<unsigned long>(kConnectionLost),
                                    });
}

bool saysBusy(const Fault& fault) {
    return isOneOf(numberOf(fault), {
                                        0x80010001UL,  // rejected
                                        0x8001010AUL,  // retry later
                                    });
}

bool saysNotAnswering(const Fault& fault) {
    return fault.number == kNotAnswering;
}

bool saysStarting(const Fault& fault) {
    return numberOf(fault) == 0x80080005UL;  // it did not come up in time
}

bool saysNotInstalled(const Fault& fault) {
    return fault.number == 429;
}

bool saysOutlookFailed(const Fault& fault) {
    const unsigned long number = numberOf(fault);
    constexpr unsigned long kOutOfMemory = 7;
    return saysServerGone(fault) || saysStarting(fault) || saysNotInstalled(fault) || isTransport(number) ||
           number == kOutOfMemory ||
           isOneOf(number & kSignificant, {
                                              0x80040115UL,  // network error
                                              0x8004011CUL,  // the store is not open
                                              0x8004011DUL,  // offline
                                          });
}

}  // namespace zelbar
