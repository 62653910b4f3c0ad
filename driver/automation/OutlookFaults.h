#pragma once

#include "automation/Fault.h"

/// What an error number of Outlook, or of the way to it, says. The one list of them: what follows from an
/// answer is the caller's business.
namespace zelbar {

/// The driver's own fault for an Outlook that could not be reached again.
inline constexpr long kConnectionLost = static_cast<long>(0x800403E9UL);

/// The number of a call that was given up, or was not made since another one has just been given up.
inline constexpr long kNotAnswering = static_cast<long>(0x80010002UL);

/// The item or folder does not exist where it was looked for. The only answer that may lead to a deletion.
bool saysItemGone(const Fault& fault);

/// Nobody is left behind the reference: Outlook was closed or died. Another call on it is in vain.
bool saysServerGone(const Fault& fault);

/// Outlook lives, but took the call not now: the same call may succeed later.
bool saysBusy(const Fault& fault);

/// Outlook is there, but does not answer in time. Another call is in vain for some seconds.
bool saysNotAnswering(const Fault& fault);

/// Outlook is starting or closing just now, or runs with other rights than the caller.
bool saysStarting(const Fault& fault);

/// There is no Outlook on this machine.
bool saysNotInstalled(const Fault& fault);

/// The fault is Outlook's own and says nothing of the object that was asked for: gone, busy, starting or
/// closing, not installed, out of memory, a store or the network behind it out of reach.
bool saysOutlookFailed(const Fault& fault);

}  // namespace zelbar
