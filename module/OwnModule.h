#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// The DLL, or the program, that this code was linked into.
HMODULE moduleHandle() noexcept;

/// Its file, as a full path of any length.
std::wstring modulePath();

}  // namespace zelbar
