#include "filler/OpenFolders.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "automation/Attempts.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "automation/Told.h"
#include "filler/OutlookFault.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::Object;

/// Opens the folders once.
class Opening {
  public:
    Opening(zelbar::Gateway& gateway, const FolderChoice& choice) : choice_(choice) {
        result_.application =
            gateway.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
        result_.session = result_.application.object(outlook::GetNamespace, L"MAPI");
    }

    OpenFolders run(Observer& observer) {
        if (choice_.folders.empty()) {
            add(result_.session.object(outlook::GetDefaultFolder, outlook::kDefaultContacts));
        } else {
            for (const ChosenFolder& chosen : choice_.folders) add(folderOf(chosen));
        }
        if (result_.folders.empty())
            throw Failure{L"None of the chosen folders exists any more. Choose the contacts folders again."};
        // Only now: an opening that is tried again must not say everything twice.
        for (const std::wstring& sentence : notes_) observer.note(sentence);
        return std::move(result_);
    }

  private:
    /// None when the folder has been deleted.
    Object folderOf(const ChosenFolder& chosen) {
        try {
            if (chosen.storeId.empty())
                return result_.session.object(outlook::GetFolderFromID, chosen.entryId);
            return result_.session.object(outlook::GetFolderFromID, chosen.entryId, chosen.storeId);
        } catch (const Fault& fault) {
            if (mayPass(fault)) throw;
            if (!saysItemGone(fault))
                throw Failure{nameOf(chosen) + L" cannot be opened in Outlook: " + explain(fault)};
            notes_.push_back(nameOf(chosen) + L" does not exist any more and was left out.");
            return {};
        }
    }

    /// What is known of a folder that cannot be opened: its number, and its store's name if that is open.
    std::wstring nameOf(const ChosenFolder& chosen) const {
        std::wstring name = L"The chosen folder number " + std::to_wstring(chosen.number);
        zelbar::Attempts()([&] {
            const Object stores = result_.session.object(outlook::Folders);
            const long count = stores.integer(outlook::Count);
            for (long i = 1; i <= count; ++i) {
                const Object store = stores.object(outlook::FolderAt, i);
                if (store.text(outlook::StoreID) != chosen.storeId) continue;
                name += L" (in " + store.text(outlook::Name) + L")";
                return;
            }
        });
        return name;
    }

    void add(const Object& folder) {
        if (!folder) return;
        const std::optional<std::size_t> store = positionOf(told(folder, outlook::StoreID).text());
        if (!store) {
            notes_.push_back(L"The folder " + pathOf(folder) +
                             L" was left out: the chosen folders lie in more than " +
                             std::to_wstring(choice_.mostStores) + L" stores.");
            return;
        }
        Object items = folder.object(outlook::Items);
        const long count = told(items, outlook::Count).integer();
        result_.folders.push_back({folder, std::move(items), *store, count});
    }

    /// The position of a store, listed if need be; nothing when that would be one too many.
    std::optional<std::size_t> positionOf(const std::wstring& storeId) {
        auto& stores = result_.storeIds;
        const auto known = std::find(stores.begin(), stores.end(), storeId);
        if (known != stores.end()) return static_cast<std::size_t>(known - stores.begin());
        if (static_cast<long>(stores.size()) >= choice_.mostStores) return std::nullopt;
        stores.push_back(storeId);
        return stores.size() - 1;
    }

    const FolderChoice& choice_;
    OpenFolders result_;
    std::vector<std::wstring> notes_;
};

}  // namespace

OpenFolders openFolders(zelbar::Gateway& gateway, const FolderChoice& choice, Observer& observer) {
    // A leaving Outlook takes seconds; one attempt on a busy one may have taken long already.
    constexpr int kMostTries = 20;
    constexpr DWORD kPause = 500;
    constexpr ULONGLONG kPatience = 15000;
    const ULONGLONG begun = GetTickCount64();
    for (int tries = 1;; ++tries) {
        goOn(observer);
        try {
            return Opening(gateway, choice).run(observer);
        } catch (const Fault& fault) {
            const bool isOver = tries == kMostTries || GetTickCount64() - begun > kPatience;
            if (isOver || !mayPass(fault)) throw;
        }
        observer.pause(kPause);
    }
}

std::wstring pathOf(const Object& folder) {
    std::wstring path;
    zelbar::Attempts()([&] {
        for (Object at = folder; at.objectClass() == outlook::kFolder; at = at.object(outlook::Parent))
            path = L"\\" + at.text(outlook::Name) + path;
    });
    return path;
}

}  // namespace filler
