#pragma once

#include <string>
#include <vector>

#include "client/Action.h"

namespace pimcall {

std::vector<std::wstring> namesOf(const std::vector<Action>& actions);

/// Names on one line, as in "Open the contact; Send an e-mail".
std::wstring listed(const std::vector<std::wstring>& names);

/// The actions as a person reads them: a name on a line, then its settings and their choices. The
/// identifiers and keys are left out unless `verbose`.
std::wstring actionsText(const std::vector<Action>& actions, bool verbose);

/// The actions with their settings as a JSON array of objects.
std::wstring actionsJson(const std::vector<Action>& actions);

}  // namespace pimcall
