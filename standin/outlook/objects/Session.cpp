#include "standin/outlook/objects/Session.h"

#include <algorithm>

#include "standin/outlook/objects/Errors.h"

namespace standin::outlook {
namespace {

template <class Window>
void bringToFront(std::vector<std::shared_ptr<Window>>& windows, const std::shared_ptr<Window>& window) {
    std::erase(windows, window);
    windows.push_back(window);
    window->visible = true;
}

template <class Window>
bool remove(std::vector<std::shared_ptr<Window>>& windows, const Window& window) {
    const auto found = std::ranges::find(windows, &window, &std::shared_ptr<Window>::get);
    if (found == windows.end()) return false;
    (*found)->visible = false;
    windows.erase(found);
    return true;
}

}  // namespace

std::shared_ptr<ItemState> Session::open(RowId id) const {
    for (const auto& window : inspectors_) {
        if (window->item->record.id == id) return window->item;
    }
    std::optional<ItemRecord> record = mailbox.item(id);
    if (!record) throw notFound(server);
    auto state = std::make_shared<ItemState>();
    state->record = std::move(*record);
    return state;
}

std::shared_ptr<InspectorWindow> Session::inspectorOf(const std::shared_ptr<ItemState>& item) const {
    for (const auto& window : inspectors_) {
        const bool sameItem = item->record.id != 0 && window->item->record.id == item->record.id;
        if (window->item == item || sameItem) return window;
    }
    auto window = std::make_shared<InspectorWindow>();
    window->item = item;
    return window;
}

void Session::show(const std::shared_ptr<InspectorWindow>& window) {
    bringToFront(inspectors_, window);
}

void Session::show(const std::shared_ptr<ExplorerWindow>& window) {
    bringToFront(explorers_, window);
}

void Session::close(const InspectorWindow& window) {
    if (remove(inspectors_, window) && onWindowClosed) onWindowClosed();
}

void Session::close(const ExplorerWindow& window) {
    if (remove(explorers_, window) && onWindowClosed) onWindowClosed();
}

void Session::closeWindowsOf(const ItemState& item) {
    const auto windows = inspectors_;
    for (const auto& window : windows) {
        if (window->item.get() == &item) close(*window);
    }
}

std::wstring Session::versionText() const {
    const std::wstring chosen = server.option(L"Version");
    return chosen.empty() ? L"11.0.0.8010" : chosen;
}

long Session::version() const {
    return std::wcstol(versionText().c_str(), nullptr, 10);
}

void Session::guardAddresses() const {
    const std::wstring answer = server.option(L"Guard");
    if (answer == L"deny") throw notSupported(server);
    if (answer == L"abort") throw outlookError(server, E_ABORT, L"Operation aborted");
}

}  // namespace standin::outlook
