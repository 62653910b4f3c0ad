#include "dialogs/DialogFont.h"

namespace zelbar {

Font ApplyCharset(HWND window, std::int16_t charset) {
    const auto own = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
    LOGFONTW description{};
    if (!own || !GetObjectW(own, sizeof(description), &description)) return {};
    description.lfCharSet = static_cast<BYTE>(charset);
    Font font(CreateFontIndirectW(&description));
    if (!font) return {};
    EnumChildWindows(
        window, [](HWND control, LPARAM handle) __stdcall->BOOL {
            SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(handle), TRUE);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(font.get()));
    return font;
}

}  // namespace zelbar
