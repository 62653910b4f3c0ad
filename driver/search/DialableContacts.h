#pragma once

#include <PIMDriverAbstract.h>

#include <functional>

#include "automation/Com.h"
#include "com/Collection.h"
#include "support/FLog.h"

namespace zelbar {

/// The contacts with something to dial, at most 25, for the client's list: `first`, and then what `next`
/// gives until it gives none. When `first` is none or has nothing to dial, the others are not asked for.
Com<Collection> dialableContacts(const Com<::Contact>& first, const std::function<Com<::Contact>()>& next);

/// Names the contacts of the list in the log.
void traceContacts(FLog& log, const Collection& contacts);

}  // namespace zelbar
