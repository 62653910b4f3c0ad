#include "filler/AddressBook.h"

#include <algorithm>
#include <utility>

#include "automation/Fault.h"
#include "automation/OutlookNames.h"
#include "filler/ItemReader.h"
#include "filler/OpenFolders.h"
#include "filler/OutlookFault.h"
#include "filler/TableReader.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;

class Reader {
  public:
    Reader(const OpenFolders& source, ChosenWay way, Observer& observer)
        : source_(source), observer_(observer) {
        book_.way = std::move(way);
    }

    AddressBook read() {
        book_.storeIds = source_.storeIds;
        book_.folderCount = static_cast<long>(source_.folders.size());
        for (const OpenFolder& folder : source_.folders) total_ += folder.count;
        for (const OpenFolder& folder : source_.folders) take(folder, readFolder(folder));
        if (book_.contactCount == 0 && book_.unreadCount > 0)
            throw Failure{L"Outlook let none of the contacts be read (" + std::to_wstring(book_.unreadCount) +
                          L" failed): " + lastFault_};
        return std::move(book_);
    }

  private:
    FolderContacts readFolder(const OpenFolder& folder) {
        const long before = done_;
        if (book_.way.way == ReadWay::Table) {
            try {
                return readTable(source_.session, folder, source_.storeIds[folder.store], observer_,
                                 [this](long rows) { progress(rows); });
            } catch (const TableRefused& refused) {
                observer_.note(L"The folder " + pathOf(folder.folder) + L" is read item by item: " +
                               refused.reason);
            }
        }
        done_ = before;
        return readItems(folder, observer_, [this] { progress(1); });
    }

    void progress(long items) {
        done_ = std::min(done_ + items, total_);
        observer_.progress(L"Reading Outlook", done_, total_);
    }

    void take(const OpenFolder& folder, FolderContacts&& read) {
        book_.contactCount += static_cast<long>(read.contacts.size());
        for (Contact& contact : read.contacts)
            if (!contact.numbers.empty()) book_.contacts.push_back({folder.store, std::move(contact)});
        for (std::wstring& id : read.unreadable) book_.unreadable.emplace(folder.store, std::move(id));
        if (read.withoutIdentifier > 0) book_.partlyRead.insert(folder.store);
        if (read.unread() == 0) return;
        book_.unreadCount += read.unread();
        lastFault_ = read.lastFault;
        observer_.note(L"Contacts that could not be read in " + pathOf(folder.folder) + L": " +
                       std::to_wstring(read.unread()) + L". The last reason: " + lastFault_);
    }

    const OpenFolders& source_;
    Observer& observer_;
    AddressBook book_;
    std::wstring lastFault_;
    long done_ = 0;
    long total_ = 0;
};

}  // namespace

AddressBook readAddressBook(zelbar::Gateway& gateway, const FolderChoice& choice,
                            std::optional<ReadWay> asked, Observer& observer) {
    try {
        const OpenFolders source = openFolders(gateway, choice, observer);
        ChosenWay way = chooseWay(asked, source.application.text(outlook::Version));
        AddressBook book = Reader(source, std::move(way), observer).read();
        book.listedStores = choice.stores;
        return book;
    } catch (const Fault& fault) {
        throw Failure{L"Outlook cannot be read: " + explain(fault)};
    }
}

}  // namespace filler
