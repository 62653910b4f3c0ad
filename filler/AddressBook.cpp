#include "filler/AddressBook.h"

#include "automation/Fault.h"
#include "automation/Object.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "filler/OpenFolders.h"
#include "filler/OutlookFault.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::Object;

class Reader {
  public:
    Reader(const OpenFolders& source, Observer& observer) : source_(source), observer_(observer) {}

    AddressBook read() {
        book_.storeIds = source_.storeIds;
        book_.folderCount = static_cast<long>(source_.folders.size());
        for (const OpenFolder& folder : source_.folders) total_ += folder.count;
        for (const OpenFolder& folder : source_.folders) readFolder(folder);
        if (book_.contactCount == 0 && book_.unreadCount > 0)
            throw Failure{L"Outlook let none of the contacts be read (" + std::to_wstring(book_.unreadCount) +
                          L" failed): " + lastFault_};
        return std::move(book_);
    }

  private:
    /// From the last to the first: when somebody deletes an item meanwhile, one that has been read is met
    /// again and none is passed over.
    void readFolder(const OpenFolder& folder) {
        const long before = book_.unreadCount;
        std::set<std::wstring> seen;
        for (long position = folder.count; position >= 1; --position) {
            goOn(observer_);
            readItem(folder, position, seen);
            observer_.progress(L"Reading Outlook", ++done_, total_);
        }
        if (const long unread = book_.unreadCount - before; unread > 0)
            observer_.note(L"Contacts that could not be read in " + pathOf(folder.folder) + L": " +
                           std::to_wstring(unread) + L". The last reason: " + lastFault_);
    }

    void readItem(const OpenFolder& folder, long position, std::set<std::wstring>& seen) {
        std::wstring id;
        try {
            const Object item = folder.items.object(outlook::ItemAt, position);
            if (item.objectClass() != outlook::kContact) return;
            id = item.text(outlook::EntryID);
            if (!seen.insert(id).second) return;
            Contact contact = readContact(item, id);
            ++book_.contactCount;
            if (!contact.numbers.empty()) book_.contacts.push_back({folder.store, std::move(contact)});
        } catch (const Fault& fault) {
            if (saysOutlookFailed(fault)) throw;
            // So many have been deleted meanwhile that nothing stands at this position.
            if (id.empty() && folder.items.integer(outlook::Count) < position) return;
            ++book_.unreadCount;
            lastFault_ = fault.description;
            if (id.empty())
                book_.partlyRead.insert(folder.store);
            else
                book_.unreadable.emplace(folder.store, id);
        }
    }

    const OpenFolders& source_;
    Observer& observer_;
    AddressBook book_;
    std::wstring lastFault_;
    long done_ = 0;
    long total_ = 0;
};

}  // namespace

AddressBook readAddressBook(zelbar::Gateway& gateway, const FolderChoice& choice, Observer& observer) {
    try {
        const OpenFolders source = openFolders(gateway, choice, observer);
        AddressBook book = Reader(source, observer).read();
        book.listedStores = choice.stores;
        return book;
    } catch (const Fault& fault) {
        throw Failure{L"Outlook cannot be read: " + explain(fault)};
    }
}

}  // namespace filler
