#pragma once

#include "core/UserDoor.h"
#include "dialogs/WindowParts.h"

namespace zelbar {

/// The driver's message window: small, in front of all other windows, with an OK button; closed by Enter and
/// Escape as well. It does not wait for the user, and there is one of it at a time. The module stays loaded
/// while it is open. It uses the parts that it was asked for with last.
MessageWindow& messageForm(const WindowParts& parts);

}  // namespace zelbar
