#pragma once

#include <string>
#include <vector>

#include "client/Driver.h"

namespace pimcall {

/// The names of the actions on one line, as in "Open the contact; Send an e-mail".
std::wstring actionNames(const std::vector<Action>& actions);

/// The actions as a JSON array of objects.
std::wstring actionsJson(const std::vector<Action>& actions);

}  // namespace pimcall
