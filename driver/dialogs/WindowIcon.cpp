#include "dialogs/WindowIcon.h"

#include "module/OwnModule.h"

namespace zelbar {

namespace {

constexpr WORD kOwnIcon = 1;

/// Shared: the system keeps it, and nobody destroys it.
HICON icon(int width, int height) noexcept {
    const HANDLE own =
        LoadImageW(moduleHandle(), MAKEINTRESOURCEW(kOwnIcon), IMAGE_ICON, width, height, LR_SHARED);
    // A program that only contains the driver's code need not have one.
    return own ? static_cast<HICON>(own) : LoadIconW(nullptr, IDI_APPLICATION);
}

}  // namespace

void giveIcon(HWND window) noexcept {
    struct Size {
        WPARAM which;
        int width;
        int height;
    };
    for (const Size& size :
         {Size{ICON_SMALL, SM_CXSMICON, SM_CYSMICON}, Size{ICON_BIG, SM_CXICON, SM_CYICON}})
        SendMessageW(
            window, WM_SETICON, size.which,
            reinterpret_cast<LPARAM>(icon(GetSystemMetrics(size.width), GetSystemMetrics(size.height))));
}

}  // namespace zelbar
