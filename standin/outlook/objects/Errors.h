#pragma once

#include "standin/common/Error.h"
#include "standin/common/Server.h"

namespace standin::outlook {

// Outlook's own errors: number and text. With the switch "PrivateBits" on, eleven bits of the number vary
// from error to error as in the versions up to 2003.
Error outlookError(Server& server, HRESULT code, std::wstring description);

// Nothing has this identifier (any more).
Error notFound(Server& server);
// The bytes are no identifier.
Error invalidEntryId(Server& server);
// The text is no identifier.
Error badParameter(Server& server);
// No open store has this identifier.
Error storeNotOpen(Server& server);
// An index below 1 or beyond the count.
Error outOfBounds(Server& server);
// The reference outlived its item.
Error itemGone(Server& server);
// A sibling folder has this name.
Error nameTaken(Server& server);
Error notSupported(Server& server);
Error accessDenied(Server& server);
// Recipients of a mail are missing or unknown.
Error unknownRecipients(Server& server);

}  // namespace standin::outlook
