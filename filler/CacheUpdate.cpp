#include "filler/CacheUpdate.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "filler/CacheTable.h"
#include "filler/StoreKeys.h"

namespace filler {
namespace {

using zelbar::Object;

/// What one table is to hold. The texts lie in the address book, among the keys, or with the target: a large
/// address book's rows would fill a good part of what a process of 32 bits has.
struct Target {
    const TableLayout& layout;
    std::vector<RecordView> records;
    std::function<bool(const Record&)> keeps;  ///< Whether a row stays although it is not among the records.
    /// Never moved: records point to them.
    std::unique_ptr<std::deque<std::wstring>> texts = std::make_unique<std::deque<std::wstring>>();
};

struct Difference {
    long added = 0;
    long removed = 0;
    bool any() const { return added > 0 || removed > 0; }
};

/// Opened to be changed, the table is made to hold what the target says; opened to be read, the difference is
/// only counted.
Difference reconcile(const Object& database, const Target& target, CacheTable::Use use, Observer& observer) {
    const auto isBefore = [](const RecordView* one, const RecordView* other) { return *one < *other; };
    std::map<const RecordView*, long, decltype(isBefore)> missing(isBefore);
    for (const RecordView& record : target.records) ++missing[&record];
    Difference difference;
    CacheTable table(database, target.layout, use);
    for (; !table.atEnd(); table.next()) {
        goOn(observer);
        const std::optional<Record> row = table.current();
        if (!row) continue;
        const RecordView view = viewOf(*row);
        if (const auto wanted = missing.find(&view); wanted != missing.end()) {
            if (--wanted->second == 0) missing.erase(wanted);
        } else if (!target.keeps(*row)) {
            ++difference.removed;
            if (use == CacheTable::Use::Change) table.remove();
        }
    }
    long total = 0;
    for (const auto& [record, count] : missing) total += count;
    for (const auto& [record, count] : missing) {
        for (long i = 0; i < count; ++i) {
            ++difference.added;
            if (use == CacheTable::Use::Read) continue;
            goOn(observer);
            table.add(*record);
            observer.progress(L"Writing the cache", difference.added, total);
        }
    }
    return difference;
}

std::vector<StoreKey> knownKeys(const CacheFile& file) {
    std::vector<StoreKey> keys;
    if (file.isNew() || !tableExists(file.database(), storeLayout())) return keys;
    for (CacheTable table(file.database(), storeLayout(), CacheTable::Use::Read); !table.atEnd();
         table.next()) {
        if (const auto row = table.current()) keys.push_back({(*row)[0], (*row)[1]});
    }
    return keys;
}

/// A contact's rows: its numbers as they stand, and without a name their other forms, each once.
void addRows(const Contact& contact, const std::wstring& storeKey, const numbers::PresentedForms& forms,
             Target& target) {
    std::set<std::wstring> written(contact.numbers.begin(), contact.numbers.end());
    for (const std::wstring& number : contact.numbers)
        target.records.push_back(RecordView{contact.name, number, contact.entryId, storeKey});
    for (const std::wstring& number : contact.numbers)
        for (std::wstring& form : forms.of(number))
            if (written.insert(form).second)
                target.records.push_back(
                    RecordView{L"", target.texts->emplace_back(std::move(form)), contact.entryId, storeKey});
}

std::vector<Target> targetsOf(const AddressBook& book, const std::vector<StoreKey>& keys,
                              const numbers::PresentedForms& forms, Observer& observer) {
    Target stores{storeLayout(), {}, [](const Record&) { return false; }};
    for (const StoreKey& key : keys) stores.records.push_back(RecordView{key.index, key.storeId});

    std::set<std::pair<std::wstring, std::wstring>> unreadable;
    for (const auto& [store, entryId] : book.unreadable) unreadable.emplace(entryId, keys[store].index);
    std::set<std::wstring> partlyRead;
    for (const std::size_t store : book.partlyRead) partlyRead.insert(keys[store].index);
    Target numbers{numberLayout(), {}, [unreadable, partlyRead](const Record& row) {
                       return partlyRead.count(row[3]) > 0 || unreadable.count({row[2], row[3]}) > 0;
                   }};
    for (const AddressBook::Entry& entry : book.contacts) {
        goOn(observer);
        addRows(entry.contact, keys[entry.store].index, forms, numbers);
    }
    std::vector<Target> targets;
    targets.push_back(std::move(stores));
    targets.push_back(std::move(numbers));
    return targets;
}

bool isUpToDate(const CacheFile& file, const std::vector<Target>& targets, Observer& observer) {
    if (file.isNew()) return false;
    for (const Target& target : targets) {
        if (!tableExists(file.database(), target.layout)) return false;
        if (reconcile(file.database(), target, CacheTable::Use::Read, observer).any()) return false;
    }
    return true;
}

CacheChange write(CacheFile& file, const std::vector<Target>& targets, Observer& observer) {
    CacheChange change;
    Transaction transaction(file.workspace());
    for (const Target& target : targets) {
        if (file.isNew() || !tableExists(file.database(), target.layout))
            makeTable(file.database(), target.layout);
        const Difference difference = reconcile(file.database(), target, CacheTable::Use::Change, observer);
        if (&target.layout == &storeLayout()) {
            change.storesChanged = difference.any();
        } else {
            change.added = difference.added;
            change.removed = difference.removed;
        }
    }
    goOn(observer);
    transaction.commit();
    file.finish(observer);
    change.created = file.isNew();
    return change;
}

}  // namespace

CacheChange updateCache(CacheFile& file, const AddressBook& book, const numbers::PresentedForms& forms,
                        SynchroFlag& flag, Observer& observer) {
    const std::vector<StoreKey> keys = storeKeys(knownKeys(file), book.storeIds, book.listedStores);
    const std::vector<Target> targets = targetsOf(book, keys, forms, observer);
    CacheChange change;
    if (!isUpToDate(file, targets, observer)) {
        flag.raise();
        change = write(file, targets, observer);
    }
    for (const AddressBook::Entry& entry : book.contacts)
        change.numberCount += static_cast<long>(entry.contact.numbers.size());
    return change;
}

}  // namespace filler
