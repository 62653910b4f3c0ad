#pragma once

#include <windows.h>

#include "support/Handle.h"

namespace zelbar {

/// While it lives, windows that are made get the system's present looks, whatever looks the client's own
/// windows have, and are laid out for one scale: on a screen of another one Windows scales them as a whole.
class VisualStyles {
  public:
    VisualStyles() noexcept;
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;

  private:
    struct ContextTraits {
        using Type = HANDLE;
        static Type empty() noexcept { return INVALID_HANDLE_VALUE; }
        static void close(Type context) noexcept { ReleaseActCtx(context); }
    };

    Handle<ContextTraits> context_;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
    HANDLE scaling_ = nullptr;  // the thread's own before
};

}  // namespace zelbar
