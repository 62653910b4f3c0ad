#include "dialogs/VisualStyles.h"

#include <commctrl.h>

#include "module/OwnModule.h"
#include "support/Handle.h"

namespace zelbar {

namespace {

constexpr WORD kManifest = 2;

struct ContextTraits {
    using Type = HANDLE;
    static Type empty() noexcept { return INVALID_HANDLE_VALUE; }
    static void close(Type context) noexcept { ReleaseActCtx(context); }
};

HANDLE makeContext() {
    const std::wstring path = modulePath();
    ACTCTXW description{};
    description.cbSize = sizeof(description);
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    description.hModule = moduleHandle();
    description.lpSource = path.c_str();
    description.lpResourceName = MAKEINTRESOURCEW(kManifest);
    return CreateActCtxW(&description);
}

HANDLE context() {
    static const Handle<ContextTraits> instance(makeContext());
    return instance.get();
}

}  // namespace

VisualStyles::VisualStyles() noexcept
    : active_(context() != INVALID_HANDLE_VALUE && ActivateActCtx(context(), &cookie_)) {
    const INITCOMMONCONTROLSEX classes{sizeof(classes),
                                       ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES};
    InitCommonControlsEx(&classes);
}

VisualStyles::~VisualStyles() {
    if (active_) DeactivateActCtx(0, cookie_);
}

}  // namespace zelbar
