#pragma once

#include <string>

namespace pimcall {

/// What the telephony client knows of a call. What is not known is empty.
struct CallDetails {
    bool incoming = true;
    /// The other party's number.
    std::wstring number;
    /// When it began: a date and time as the user's system writes them.
    std::wstring start;
    /// How long it lasted; any text.
    std::wstring duration;
    /// The user's own number.
    std::wstring localNumber;
    std::wstring origin;
};

/// The fields that the driver's actions read in a contact's personal data. Throws `UsageError` for a detail
/// with a ";", which would end its field, or with what begins a later one.
std::wstring callInformation(const CallDetails& details);

}  // namespace pimcall
