#pragma once

#include <string>

#include "dialogs/cfolder.h"

namespace zelbar {

/// Makes a contacts folder below another one in Outlook. Throws when Outlook does not.
cfolder makeContactsFolder(const cfolder& parent, const std::wstring& name);

}  // namespace zelbar
