#include "dialogs/Anchors.h"

namespace zelbar {

namespace {

/// One direction: an extent whose far edge is held follows, whole or only with that edge.
void follow(LONG& low, LONG& high, LONG growth, bool holdsLow, bool holdsHigh) {
    if (!holdsHigh) return;
    high += growth;
    if (!holdsLow) low += growth;
}

}  // namespace

void Anchors::record(HWND dialog, std::initializer_list<Anchor> anchors) {
    dialog_ = dialog;
    RECT client{}, whole{};
    GetClientRect(dialog, &client);
    GetWindowRect(dialog, &whole);
    client_ = {client.right, client.bottom};
    smallest_ = {whole.right - whole.left, whole.bottom - whole.top};
    for (const Anchor& anchor : anchors) {
        Place place{GetDlgItem(dialog, anchor.control), anchor.edges, {}};
        GetWindowRect(place.control, &place.rectangle);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place.rectangle), 2);
        places_.push_back(place);
    }
}

void Anchors::move() const noexcept {
    if (!dialog_) return;
    RECT client{};
    GetClientRect(dialog_, &client);
    HDWP moves = BeginDeferWindowPos(static_cast<int>(places_.size()));
    for (const Place& place : places_) {
        RECT to = place.rectangle;
        follow(to.left, to.right, client.right - client_.cx, place.edges & kLeft, place.edges & kRight);
        follow(to.top, to.bottom, client.bottom - client_.cy, place.edges & kTop, place.edges & kBottom);
        if (moves)
            moves = DeferWindowPos(moves, place.control, nullptr, to.left, to.top, to.right - to.left,
                                   to.bottom - to.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (moves) EndDeferWindowPos(moves);
    // Buttons with the system's looks do not paint themselves again after such a move everywhere.
    RedrawWindow(dialog_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void Anchors::limit(MINMAXINFO& sizes) const noexcept {
    sizes.ptMinTrackSize = {smallest_.cx, smallest_.cy};
}

}  // namespace zelbar
