#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dialogs/FolderSearch.h"
#include "dialogs/FolderSettings.h"

namespace zelbar {

/// The user's choice of contacts folders while the window for it is open, without the window: everything is
/// read from Outlook and the settings when it is made, and only what is saved outlasts it.
class FolderSelection {
  public:
    /// Both must outlive the selection.
    FolderSelection(OutlookConnection& outlook, FLog& log);

    /// Goes on searching by one folder. False when all have been found.
    bool search() noexcept;

    /// How many of Outlook's folders the search has seen so far. Only as long as there are more.
    size_t seen() const { return search_->seen(); }

    /// After the search: loads the stored selection, and saves at once when it no longer fits what Outlook
    /// has, so that the client hears of it even if the user cancels. On an incomplete list nothing is saved
    /// unasked: the user's choice would be lost because Outlook was closed or busy.
    void load();

    bool reached() const { return reached_; }
    bool complete() const { return complete_; }
    bool StoresChanged() const { return storesChanged_; }
    bool FirstConfiguration() const { return firstConfiguration_; }
    /// The cache was to be rebuilt already.
    bool reinitialize() const { return reinitialize_; }

    FolderTree& tree() { return tree_; }
    std::vector<cfolder*> folders() { return contactsFolders(tree_); }

    /// The export folder as it was when the window opened. Part of the window's state by agreement; nothing
    /// asks for it.
    const StoredFolder& exportFolder() const { return exportFolder_; }

    /// The folder tree has changed Outlook's folders.
    void SetFoldersModified() { foldersModified_ = true; }

    /// Makes the list the stored selection; `reinitialize` is the user's own wish for a new cache.
    void save(bool reinitialize);

  private:
    FLog& log_;
    FolderSettings settings_;
    StoredFolder exportFolder_ = settings_.exportFolder();
    std::unique_ptr<FolderSearch> search_;
    FolderTree tree_;
    std::wstring signature_;
    bool reached_ = false;
    bool complete_ = false;
    bool storesChanged_ = false;
    bool firstConfiguration_ = false;
    bool foldersModified_ = false;
    bool reinitialize_ = false;
};

}  // namespace zelbar
