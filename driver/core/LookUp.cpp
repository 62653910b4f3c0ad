#include "core/LookUp.h"

#include <algorithm>
#include <iterator>

namespace zelbar {

bool saysNotFound(const Fault& fault) {
    // Older Outlooks leave private bits in the number, other ones from call to call.
    constexpr unsigned long kSignificant = 0x800FFFFFUL;
    constexpr unsigned long kNotFound[] = {
        0x8004010FUL,  // nothing has this identifier
        0x80040107UL,  // not an identifier of this store's kind
        0x80040201UL,  // no store claims it
        0x8004010AUL,  // deleted since it was opened
    };
    const unsigned long number = static_cast<unsigned long>(fault.number) & kSignificant;
    return std::find(std::begin(kNotFound), std::end(kNotFound), number) != std::end(kNotFound);
}

}  // namespace zelbar
