#include "dialogs/FolderSearch.h"

#include <utility>

#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "automation/Told.h"
#include "dialogs/FolderRules.h"

namespace zelbar {

FolderSearch::FolderSearch(OutlookConnection& outlook, FLog& log, std::wstring limit)
    : outlook_(outlook),
      log_(log),
      limit_(std::move(limit)),
      attempt_([this](const Fault& fault) { failed(fault); }) {}

void FolderSearch::failed(const Fault& fault) {
    found_.complete = false;
    log_.fault(L"Error (Search_Outlook_ContactFolder): ", fault);
    if (saysServerGone(fault) || saysNotAnswering(fault)) levels_.clear();
}

bool FolderSearch::step() noexcept {
    attempt_([this] {
        const auto deadline = outlook_.timeForUser();
        if (!std::exchange(started_, true)) return start();
        if (levels_.empty()) return;
        Level& level = levels_.back();
        if (level.next > level.count) return levels_.pop_back();
        const std::wstring path = level.path;
        const Object folders = level.folders;
        visit(folders.object(outlook::FolderAt, level.next++), path);
    });
    return !levels_.empty();
}

Object FolderSearch::connect() {
    struct Way {
        const wchar_t* progId;
        const wchar_t* said;
    };
    constexpr Way kWays[] = {
        {L"Outlook.Application.9", nullptr},
        {outlook::kProgId, L"Getting Outlook folders : connection to object outlook.application"},
        {L"Outlook.Application.10", L"Getting Outlook folders : connection to object outlook.application.10"},
    };
    for (const Way& way : kWays) {
        Object application;
        Attempts quietly;
        quietly.into(application, [&] { return outlook_.running(way.progId); });
        if (!application) continue;
        if (way.said) log_.trace(way.said);
        return application;
    }
    log_.trace(L"Getting Outlook folders : no connection to object outlook");
    return {};
}

void FolderSearch::start() {
    const Object application = connect();
    if (!application) return;
    found_.reached = true;
    const Object stores = application.object(outlook::GetNamespace, L"MAPI").object(outlook::Folders);
    found_.stores = storesToSearch(told(stores, outlook::Count).integer());
    found_.complete = true;
    levels_.push_back({stores, found_.stores, 1, {}});
}

long FolderSearch::storesToSearch(long open) {
    log_.trace(L"Number of PST files opened : ", open);
    if (open > kMostStores) {
        log_.trace(L"Search_Outlook_ContactFolder: Limit of max pst files reached.");
        open = kMostStores;
    }
    const auto limit = storeLimit(limit_);
    if (!limit || *limit >= open) return open;
    log_.trace(L"Search_Outlook_ContactFolder: Limit number of pst files to ", *limit);
    return *limit;
}

void FolderSearch::visit(const Object& object, const std::wstring& parentPath) {
    FolderNode node;
    cfolder& folder = node.folder;
    node.depth = levels_.size() - 1;
    folder.DisplayName = object.text(outlook::Name);
    folder.FullName = parentPath + L"\\" + folder.DisplayName;
    if (node.depth == 0) {
        log_.trace(L"--- PST : '", folder.DisplayName, L" ------------");
        storeId_.clear();
        attempt_([&] { storeId_ = told(object, outlook::StoreID).text(); });
    }
    // A folder that does not tell who it is cannot be selected; those below it may.
    attempt_([&] {
        const bool holdsContacts =
            told(object, outlook::DefaultItemType).integer() == outlook::kContactItemType;
        // Mailboxes have thousands of others. Who those are is found out when a folder is made below one.
        if (holdsContacts || node.depth == 0) folder.EntryId = told(object, outlook::EntryID).text();
        // A store's folders all name the same store.
        const bool unknown = holdsContacts && storeId_.empty();
        folder.StoreID = unknown ? told(object, outlook::StoreID).text() : storeId_;
        node.holdsContacts = holdsContacts;
    });
    std::wstring path = folder.FullName;
    found_.tree.push_back(std::move(node));
    if (levels_.empty()) return;  // Outlook has gone meanwhile
    const Object folders = object.object(outlook::Folders);
    const long count = told(folders, outlook::Count).integer();
    if (count > 0) levels_.push_back({folders, count, 1, std::move(path)});
}

}  // namespace zelbar
