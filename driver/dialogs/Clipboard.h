#pragma once

#include <windows.h>

#include <string>

namespace zelbar {

/// Makes a text the content of the clipboard. False when another program holds it.
bool copyToClipboard(HWND owner, const std::wstring& text) noexcept;

}  // namespace zelbar
