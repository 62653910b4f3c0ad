#pragma once

#include <string>

namespace zelbar {

/// This process by its number and its start: the number alone is given again to others.
std::wstring ownProcessName();

/// Whether the process of that name runs.
bool isProcessRunning(const std::wstring& name);

}  // namespace zelbar
