#pragma once

#include <windows.h>

namespace zelbar {

/// While it lives, windows that are made get the system's present looks, whatever looks the client's own
/// windows have.
class VisualStyles {
  public:
    VisualStyles() noexcept;
    ~VisualStyles();
    VisualStyles(const VisualStyles&) = delete;
    VisualStyles& operator=(const VisualStyles&) = delete;

  private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

}  // namespace zelbar
