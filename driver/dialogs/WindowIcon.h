#pragma once

#include <windows.h>

namespace zelbar {

/// Gives a window the module's own icon, in the sizes that its screen wants.
void giveIcon(HWND window) noexcept;

}  // namespace zelbar
