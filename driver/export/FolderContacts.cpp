#include "export/FolderContacts.h"

#include <algorithm>
#include <utility>

#include "automation/OutlookFaults.h"
#include "support/OutlookGuard.h"

namespace zelbar {

FolderContacts::FolderContacts(ExportRun& run, Object application, Object session, Object folder)
    : run_(run),
      application_(std::move(application)),
      session_(std::move(session)),
      folder_(std::move(folder)),
      items_(folder_.object(outlook::Items)),
      storeId_(folder_.text(outlook::StoreID)) {}

Object FolderContacts::opened(const ExportedContact& contact) const {
    return session_.object(outlook::GetContactItem, contact.entryId, storeId_);
}

long FolderContacts::itemCount() const {
    const auto deadline = run_.timeForUser();
    return items_.integer(outlook::Count);
}

void FolderContacts::read() {
    const std::optional<std::wstring> refusal = readTable();
    if (!refusal) {
        keptStill_ = true;
        readFromItems(
            [](const ExportedContact& contact) { return contact.source == ExportedContact::Unread; });
        return;
    }
    run_.trace(L" reads the folder item by item: ", *refusal);
    contacts_.clear();
    readItems();
}

/// Why the folder is not read through its table; nothing when it has been.
std::optional<std::wstring> FolderContacts::readTable() {
    try {
        const TableUse use = [this] {
            const auto deadline = run_.timeForUser();
            return tableUse(application_.text(outlook::Version));
        }();
        if (!use.isAllowed) return use.reason;
        run_.trace(L" reads the folder's table: ", use.reason);
        if (!takeTable()) return L"it changed while it was read";
        return {};
    } catch (...) {
        const Fault fault = caughtFault();
        if (saysServerGone(fault) || saysNotAnswering(fault)) throw;
        return fault.description;
    }
}

/// False when the folder has changed meanwhile.
bool FolderContacts::takeTable() {
    const bool withAddresses = run_.addresses().allowed();
    run_.begin(L"compare", static_cast<size_t>(itemCount()));
    FolderTable table = openTable(withAddresses);
    const auto fetch = [&] {
        const auto deadline = run_.timeForUser();
        return table.next();
    };
    const auto met = table.walk(fetch, [&](const FolderTable::Row& row) {
        beginItem(contacts_.size() + 1);
        contacts_.push_back(tellExported(row, withAddresses));
        run_.advance();
    });
    return met && static_cast<long>(*met) == itemCount();
}

FolderTable FolderContacts::openTable(bool withAddresses) const {
    FolderTable::Names columns{outlook::MessageClass.name, outlook::Categories.name, kEmployeeIdTableColumn,
                               kCategorieIdTableColumn};
    for (const ExportedColumn& column : kExportedColumns)
        if (withAddresses || !column.isAddress) columns.push_back(column.field.name);
    const auto deadline = run_.timeForUser();
    return FolderTable(folder_, columns, {});
}

void FolderContacts::readItems() {
    const long count = itemCount();
    run_.begin(L"compare", static_cast<size_t>(count));
    for (long index = 1; index <= count; ++index) {
        beginItem(static_cast<size_t>(index));
        readItem(static_cast<size_t>(index), [&] { return items_.object(outlook::ItemAt, index); });
        run_.advance();
    }
    // When the folder shrinks under the walk, one item slips past; when it grows, one is not met.
    keptStill_ = itemCount() == count;
}

void FolderContacts::beginItem(size_t index) const {
    run_.trace(L" do while for index: ", index);
}

bool FolderContacts::confirm(const std::unordered_set<long>& employees) {
    return readFromItems([&](const ExportedContact& contact) {
        return contact.source == ExportedContact::Table && employees.contains(contact.employeeId);
    });
}

/// Exchanges what is known of those contacts for what their items say; false when there are none.
template <class Which>
bool FolderContacts::readFromItems(Which&& which) {
    const auto count = std::count_if(contacts_.begin(), contacts_.end(), which);
    if (count == 0) return false;
    run_.begin(L"compare", static_cast<size_t>(count));
    std::vector<ExportedContact> before = std::exchange(contacts_, {});
    for (size_t i = 0; i < before.size(); ++i) {
        if (!which(before[i])) {
            contacts_.push_back(std::move(before[i]));
            continue;
        }
        readItem(i + 1, [&] { return session_.object(outlook::GetItemFromID, before[i].entryId, storeId_); });
        run_.advance();
    }
    return true;
}

/// Takes an item in if it is an exported contact that has not been met: one that moves up while the folder
/// grows under the walk comes by twice.
template <class Open>
void FolderContacts::readItem(size_t line, Open&& open) {
    Object item;
    const bool isIdentified = run_.guarded(line, [&] {
        Object met = open();
        auto contact = identifyExported(met);
        if (!contact || !seen_.insert(contact->entryId).second) return;
        contacts_.push_back(std::move(*contact));
        item = std::move(met);
    });
    if (!isIdentified) allIdentified_ = false;
    if (item) run_.guarded(line, [&] { readTexts(item, contacts_.back(), run_.addresses()); });
}

}  // namespace zelbar
