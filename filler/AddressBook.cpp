#include "filler/AddressBook.h"

#include <algorithm>
#include <optional>

#include "automation/Fault.h"
#include "automation/Object.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "filler/OutlookFault.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::Object;

/// An opened folder: its items and where they lie.
struct Source {
    Object items;
    std::size_t store;
    long count;
};

class Reader {
  public:
    Reader(const Object& session, const FolderChoice& choice, Observer& observer)
        : session_(session), choice_(choice), observer_(observer) {}

    AddressBook read() {
        const std::vector<Source> sources = open();
        for (const Source& source : sources) total_ += source.count;
        for (const Source& source : sources) readItems(source);
        if (book_.unreadCount > 0) reportUnread();
        return std::move(book_);
    }

  private:
    std::vector<Source> open() {
        std::vector<Source> sources;
        if (choice_.folders.empty()) {
            add(sources, session_.object(outlook::GetDefaultFolder, outlook::kDefaultContacts));
        } else {
            for (std::size_t i = 0; i < choice_.folders.size(); ++i) add(sources, chosenFolder(i));
        }
        if (sources.empty())
            throw Failure{L"None of the chosen folders exists any more. Choose the contacts folders again."};
        book_.folderCount = static_cast<long>(sources.size());
        return sources;
    }

    /// None when the folder has been deleted.
    Object chosenFolder(std::size_t position) {
        const FolderId& id = choice_.folders[position];
        const std::wstring place = std::to_wstring(position + 1);
        try {
            if (id.storeId.empty()) return session_.object(outlook::GetFolderFromID, id.entryId);
            return session_.object(outlook::GetFolderFromID, id.entryId, id.storeId);
        } catch (const Fault& fault) {
            if (!saysItemGone(fault))
                throw Failure{L"The chosen folder number " + place + L" cannot be opened in Outlook: " +
                              explain(fault)};
            observer_.note(L"The chosen folder number " + place +
                           L" does not exist any more and was left out.");
            return {};
        }
    }

    void add(std::vector<Source>& sources, const Object& folder) {
        if (!folder) return;
        const std::optional<std::size_t> store = positionOf(folder.text(outlook::StoreID));
        if (!store) return;
        Object items = folder.object(outlook::Items);
        const long count = items.integer(outlook::Count);
        sources.push_back({std::move(items), *store, count});
    }

    /// The position of a store, listed if need be; nothing when that would be one too many.
    std::optional<std::size_t> positionOf(const std::wstring& storeId) {
        auto& stores = book_.storeIds;
        const auto known = std::find(stores.begin(), stores.end(), storeId);
        if (known != stores.end()) return static_cast<std::size_t>(known - stores.begin());
        if (static_cast<long>(stores.size()) >= choice_.mostStores) {
            observer_.note(L"A folder was left out: the chosen folders lie in more than " +
                           std::to_wstring(choice_.mostStores) + L" stores.");
            return std::nullopt;
        }
        stores.push_back(storeId);
        return stores.size() - 1;
    }

    /// From the last to the first: when somebody deletes an item meanwhile, one that has been read is met
    /// again and none is passed over.
    void readItems(const Source& source) {
        std::set<std::wstring> seen;
        for (long position = source.count; position >= 1; --position) {
            goOn(observer_);
            readItem(source, position, seen);
            observer_.progress(L"Reading Outlook", ++done_, total_);
        }
    }

    void readItem(const Source& source, long position, std::set<std::wstring>& seen) {
        std::wstring id;
        try {
            const Object item = source.items.object(outlook::ItemAt, position);
            if (item.objectClass() != outlook::kContact) return;
            id = item.text(outlook::EntryID);
            if (!seen.insert(id).second) return;
            Contact contact = readContact(item, id);
            ++book_.contactCount;
            if (!contact.numbers.empty()) book_.contacts.push_back({source.store, std::move(contact)});
        } catch (const Fault& fault) {
            if (saysOutlookFailed(fault)) throw;
            ++book_.unreadCount;
            lastFault_ = fault.description;
            if (!id.empty()) book_.unreadable.emplace(source.store, id);
        }
    }

    void reportUnread() {
        const std::wstring count = std::to_wstring(book_.unreadCount);
        if (book_.contactCount == 0)
            throw Failure{L"Outlook let none of the contacts be read (" + count + L" failed): " + lastFault_};
        observer_.note(L"Contacts that could not be read: " + count + L". The last reason: " + lastFault_);
    }

    const Object& session_;
    const FolderChoice& choice_;
    Observer& observer_;
    AddressBook book_;
    std::wstring lastFault_;
    long done_ = 0;
    long total_ = 0;
};

Object startOutlook(zelbar::Gateway& gateway) {
    try {
        return gateway.create(zelbar::Server::Outlook, outlook::kProgId, outlook::kApplication);
    } catch (const Fault& fault) {
        throw Failure{L"Outlook does not start: " + explain(fault)};
    }
}

}  // namespace

AddressBook readAddressBook(zelbar::Gateway& gateway, const FolderChoice& choice, Observer& observer) {
    try {
        const Object application = startOutlook(gateway);
        const Object session = application.object(outlook::GetNamespace, L"MAPI");
        return Reader(session, choice, observer).read();
    } catch (const Fault& fault) {
        throw Failure{L"Outlook cannot be read: " + explain(fault)};
    }
}

}  // namespace filler
