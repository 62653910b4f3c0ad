#include "dialogs/FolderSelection.h"

#include <optional>
#include <utility>

#include "automation/Attempts.h"

namespace zelbar {

FolderSelection::FolderSelection(OutlookConnection& outlook, FLog& log)
    : log_(log), search_(std::make_unique<FolderSearch>(outlook, log, settings_.LimitPST())) {}

bool FolderSelection::search() noexcept {
    return search_ && search_->step();
}

void FolderSelection::load() {
    // The search goes with all that it holds of Outlook.
    const auto search = std::exchange(search_, nullptr);
    FoundFolders found = search->take();
    tree_ = std::move(found.tree);
    reached_ = found.reached;
    complete_ = found.complete;

    const auto list = folders();
    std::optional<StoredSelection> stored;
    // A choice that cannot be read is not one that was never made.
    Attempts attempt([this](const Fault& fault) { log_.fault(L"Error (frmOutSelFolder): ", fault); });
    if (!attempt.into(stored, [this] { return settings_.selection(); })) complete_ = false;
    if (stored) {
        const SelectionMatch match = applySelection(*stored, list);
        reinitialize_ = stored->reinitialize;
        log_.trace(L"Nb folders in registry = ", match.stored, L" nb folders selected found = ", match.found);
        storesChanged_ = complete_ && match.stored != match.found;
    } else {
        firstConfiguration_ = true;
        selectFirst(list);
        storesChanged_ = complete_ && settings_.InitPSTnumber() != found.stores;
    }
    signature_ = signatureOf(list);
    if (storesChanged_) save(reinitialize_);
}

void FolderSelection::save(bool reinitialize) {
    const auto list = folders();
    const bool unchanged = signatureOf(list) == signature_ && !storesChanged_ && !foldersModified_;
    settings_.save(list, reinitialize || !unchanged);
}

}  // namespace zelbar
