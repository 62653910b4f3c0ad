#pragma once

#include <windows.h>

#include <initializer_list>
#include <vector>

namespace zelbar {

/// Keeps the controls of a resizable dialog in their places: each edge named follows the dialog's edge.
class Anchors {
  public:
    enum Edge : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

    struct Anchor {
        int control;
        unsigned edges;
    };

    /// Notes where everything is. To be called while the dialog has the size of its template, which becomes
    /// its smallest.
    void record(HWND dialog, std::initializer_list<Anchor> anchors);

    /// The dialog has a new size.
    void move() const noexcept;

    /// Answers what the smallest size is.
    void limit(MINMAXINFO& sizes) const noexcept;

  private:
    struct Place {
        HWND control;
        unsigned edges;
        RECT rectangle;
    };

    HWND dialog_ = nullptr;
    SIZE client_{};
    SIZE smallest_{};
    std::vector<Place> places_;
};

}  // namespace zelbar
