#include "dialogs/VisualStyles.h"

#include <commctrl.h>

#include "module/OwnModule.h"

namespace zelbar {

namespace {

constexpr WORD kManifest = 2;

/// Without memory for it the window has the system's older looks.
HANDLE makeContext() noexcept try {
    const std::wstring path = modulePath();
    ACTCTXW description{};
    description.cbSize = sizeof(description);
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    description.hModule = moduleHandle();
    description.lpSource = path.c_str();
    description.lpResourceName = MAKEINTRESOURCEW(kManifest);
    return CreateActCtxW(&description);
} catch (...) {
    return INVALID_HANDLE_VALUE;
}

/// Gives the thread another way of scaling; returns the one before. Windows 10 is the first to know any.
HANDLE exchangeScaling(HANDLE scaling) noexcept {
    using SetContext = HANDLE(WINAPI*)(HANDLE);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext");
    return found ? reinterpret_cast<SetContext>(reinterpret_cast<void*>(found))(scaling) : nullptr;
}

/// The system's constant DPI_AWARENESS_CONTEXT_SYSTEM_AWARE.
HANDLE oneScale() noexcept {
    return reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-2));
}

}  // namespace

VisualStyles::VisualStyles() noexcept
    : context_(makeContext()),
      active_(context_ && ActivateActCtx(context_.get(), &cookie_)),
      scaling_(exchangeScaling(oneScale())) {
    const INITCOMMONCONTROLSEX classes{sizeof(classes),
                                       ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES};
    InitCommonControlsEx(&classes);
}

VisualStyles::~VisualStyles() {
    if (scaling_) exchangeScaling(scaling_);
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace zelbar
