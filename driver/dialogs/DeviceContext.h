#pragma once

#include <windows.h>

#include <string>

#include "support/Handle.h"

namespace zelbar {

struct DeviceContextTraits {
    using Type = HDC;
    static Type empty() noexcept { return nullptr; }
    static void close(Type context) noexcept { ReleaseDC(WindowFromDC(context), context); }
};

/// The place that a text needs in a window in that font: broken at `widest` pixels, or as one line when that
/// is 0.
inline SIZE textSize(HWND window, HFONT font, const std::wstring& text, LONG widest) {
    const Handle<DeviceContextTraits> context(GetDC(window));
    const HGDIOBJ before = SelectObject(context.get(), font);
    RECT needed{0, 0, widest, 0};
    const UINT flags = widest > 0 ? DT_WORDBREAK | DT_EDITCONTROL : DT_SINGLELINE;
    DrawTextW(context.get(), text.c_str(), static_cast<int>(text.size()), &needed,
              DT_CALCRECT | DT_NOPREFIX | flags);
    SelectObject(context.get(), before);
    return {needed.right, needed.bottom};
}

}  // namespace zelbar
