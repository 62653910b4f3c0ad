#pragma once

#include "automation/Gateway.h"
#include "core/OutlookConnection.h"
#include "core/UserDoor.h"
#include "search/ContactParts.h"
#include "support/FLog.h"
#include "support/cLocalizedText.h"

namespace zelbar {

/// What an action uses of the driver. It lasts as long as what contacts use.
struct ActionParts {
    FLog& log;
    OutlookConnection& outlook;
    cLocalizedText& texts;
    UserDoor& user;
    /// By which contacts of the client's own are called.
    Gateway& gateway;
    /// For the contact that a caller gets who gave none.
    ContactParts contact;
};

}  // namespace zelbar
