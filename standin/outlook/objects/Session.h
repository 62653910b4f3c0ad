#pragma once

#include <functional>
#include <memory>

#include "standin/common/Object.h"
#include "standin/outlook/mailbox/Mailbox.h"

namespace standin::outlook {

class Application;

// An item that someone works on: shared by the references to it and its window.
struct ItemState {
    ItemRecord record;
    bool changed = false;
    // Sent, moved to another store or deleted through one of its references.
    bool gone = false;
};

struct InspectorWindow {
    std::shared_ptr<ItemState> item;
    bool visible = false;
};

struct ExplorerWindow {
    RowId folder = 0;
    bool visible = false;
};

// What one run of Outlook, from start to quitting, has besides its mailbox: the Application and the windows.
// Windows hold no COM references, so that open windows do not count as live objects.
class Session {
  public:
    Session(Server& owner, Mailbox& saved) : server(owner), mailbox(saved) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    Server& server;
    Mailbox& mailbox;
    // The one Application that clients share, while any holds it.
    Application* application = nullptr;
    // Runs when a window has closed.
    std::function<void()> onWindowClosed;

    // Visible windows, the active one last.
    const std::vector<std::shared_ptr<InspectorWindow>>& inspectors() const noexcept { return inspectors_; }
    const std::vector<std::shared_ptr<ExplorerWindow>>& explorers() const noexcept { return explorers_; }
    bool hasWindows() const noexcept { return !inspectors_.empty() || !explorers_.empty(); }

    // An item as a new reference sees it: the state in its open window, else a fresh copy of what is saved.
    std::shared_ptr<ItemState> open(RowId item) const;
    // The item's window, or a new one that is not shown yet.
    std::shared_ptr<InspectorWindow> inspectorOf(const std::shared_ptr<ItemState>& item) const;

    void show(const std::shared_ptr<InspectorWindow>& window);
    void show(const std::shared_ptr<ExplorerWindow>& window);
    void close(const InspectorWindow& window);
    void close(const ExplorerWindow& window);
    void closeWindowsOf(const ItemState& item);

    // The number before the first dot of the version that is played.
    long version() const;
    std::wstring versionText() const;

    // Throws what a client gets when the user denies access to addresses, if the switch "Guard" says so.
    void guardAddresses() const;

  private:
    std::vector<std::shared_ptr<InspectorWindow>> inspectors_;
    std::vector<std::shared_ptr<ExplorerWindow>> explorers_;
};

}  // namespace standin::outlook
