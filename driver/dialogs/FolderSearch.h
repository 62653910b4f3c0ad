#pragma once

#include <string>
#include <utility>
#include <vector>

#include "automation/Attempts.h"
#include "automation/Object.h"
#include "core/OutlookConnection.h"
#include "dialogs/FolderTree.h"
#include "support/FLog.h"

namespace zelbar {

/// What a search has found.
struct FoundFolders {
    FolderTree tree;
    long stores = 0;        ///< How many were to be searched.
    bool reached = false;   ///< An Outlook was running.
    bool complete = false;  ///< Nothing that was asked failed, so what is not here does not exist.
};

/// The walk over the folders of the Outlook that is running; none is started for it. It goes step by step, a
/// folder at a time, so that a window stays alive during a long one, and asks nothing twice.
class FolderSearch {
  public:
    /// Both must outlive the search. `limit` is the setting that limits the stores.
    FolderSearch(OutlookConnection& outlook, FLog& log, std::wstring limit);
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;

    /// Goes on by one folder. False when there is nothing left to ask.
    bool step() noexcept;

    /// How many folders it has come by.
    size_t seen() const { return found_.tree.size(); }

    /// Hands the result over, once the search has ended.
    FoundFolders take() { return std::move(found_); }

  private:
    /// The folders below one folder, or the stores.
    struct Level {
        Object folders;
        long count = 0;
        long next = 1;
        std::wstring path;
    };

    Object connect();
    void start();
    long storesToSearch(long open);
    void visit(const Object& folder, const std::wstring& parentPath);
    void failed(const Fault& fault);

    OutlookConnection& outlook_;
    FLog& log_;
    std::wstring limit_;
    Attempts attempt_;
    FoundFolders found_;
    std::wstring storeId_;  // of the store being searched
    std::vector<Level> levels_;
    bool started_ = false;
};

}  // namespace zelbar
