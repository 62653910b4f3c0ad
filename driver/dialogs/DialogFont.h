#pragma once

#include <windows.h>

#include <cstdint>

#include "support/Handle.h"

namespace zelbar {

struct FontTraits {
    using Type = HFONT;
    static Type empty() noexcept { return nullptr; }
    static void close(Type font) noexcept { DeleteObject(font); }
};
using Font = Handle<FontTraits>;

/// Gives all controls of a window its own font in another character set. The font must outlive the controls.
Font ApplyCharset(HWND window, std::int16_t charset);

}  // namespace zelbar
