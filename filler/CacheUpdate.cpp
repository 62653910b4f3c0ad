#include "filler/CacheUpdate.h"

#include <algorithm>
#include <functional>
#include <memory_resource>
#include <set>
#include <utility>
#include <vector>

#include "filler/CacheTable.h"
#include "filler/Digest.h"
#include "filler/Failure.h"
#include "filler/FillMark.h"
#include "filler/StoreKeys.h"

namespace filler {
namespace {

using zelbar::Object;

/// What one table is to hold. The texts lie elsewhere: a large address book's rows would fill a good part of
/// what a process of 32 bits has.
struct Target {
    const TableLayout& layout;
    std::vector<RecordView> records;                ///< In their order once it has been compared.
    std::function<bool(const RecordView&)> keeps =  ///< Whether a row stays that is not among the records.
        [](const RecordView&) { return false; };
};

/// How a table differs from its target.
struct Difference {
    std::vector<const RecordView*> missing;
    long surplus = 0;

    bool any() const { return surplus > 0 || !missing.empty(); }
};

/// Which of a target's records have been met.
class Met {
  public:
    explicit Met(const std::vector<RecordView>& sorted) : records_(sorted), met_(sorted.size()) {}

    /// False when there is no such record, or not so often.
    bool meet(const RecordView& row) {
        const auto first = std::lower_bound(records_.begin(), records_.end(), row);
        for (auto at = static_cast<std::size_t>(first - records_.begin());
             at < records_.size() && records_[at] == row; ++at) {
            if (met_[at]) continue;
            met_[at] = true;
            return true;
        }
        return false;
    }
    std::vector<const RecordView*> others() const {
        std::vector<const RecordView*> result;
        for (std::size_t i = 0; i < records_.size(); ++i)
            if (!met_[i]) result.push_back(&records_[i]);
        return result;
    }

  private:
    const std::vector<RecordView>& records_;
    std::vector<bool> met_;
};

Difference compare(const CacheFile& file, Target& target, Observer& observer) {
    std::sort(target.records.begin(), target.records.end());
    Met met(target.records);
    Difference difference;
    if (!file.isNew() && tableExists(file.database(), target.layout)) {
        CacheTable table(file.database(), target.layout, CacheTable::Use::Read);
        for (; !table.atEnd(); table.next()) {
            goOn(observer);
            const auto row = table.current();
            if (row && !met.meet(*row) && !target.keeps(*row)) ++difference.surplus;
        }
    }
    difference.missing = met.others();
    return difference;
}

std::vector<StoreKey> knownKeys(const CacheFile& file) {
    std::vector<StoreKey> keys;
    if (file.isNew() || !tableExists(file.database(), storeLayout())) return keys;
    for (CacheTable table(file.database(), storeLayout(), CacheTable::Use::Read); !table.atEnd();
         table.next()) {
        if (const auto row = table.current())
            keys.push_back({std::wstring((*row)[0]), std::wstring((*row)[1])});
    }
    return keys;
}

/// One fill: what the tables are to hold, and their way there.
class Update {
  public:
    Update(CacheFile& file, const AddressBook& book, const numbers::PresentedForms& forms, Observer& observer)
        : file_(file),
          book_(book),
          forms_(forms),
          observer_(observer),
          keys_(storeKeys(knownKeys(file), book.storeIds, book.listedStores)),
          sources_(sourcesMark(book, keys_, forms.place())) {}

    CacheChange carryOut(SynchroFlag& flag) {
        CacheChange change;
        for (const AddressBook::Entry& entry : book_.contacts)
            change.numberCount += static_cast<long>(entry.contact.numbers.size());
        if (isAsLeft()) return change;
        setTargets();
        Difference stores = compare(file_, stores_, observer_);
        Difference numbers = compare(file_, numbers_, observer_);
        change.storesChanged = stores.any();
        change.added = static_cast<long>(numbers.missing.size());
        change.removed = numbers.surplus;
        change.created = file_.isNew();
        if (!change.any() && hasTables()) return change;
        flag.raise();
        write(std::move(stores), std::move(numbers));
        return change;
    }

  private:
    /// Nothing has changed since the last fill, neither what it read nor what it wrote.
    bool isAsLeft() const {
        const std::wstring mark = storedMark(file_);
        return mark.starts_with(sources_ + L" ") && hasTables() && book_.isComplete() &&
               mark == sources_ + L" " + rowsMark(file_.database(), observer_);
    }

    bool hasTables() const {
        return !file_.isNew() && tableExists(file_.database(), storeLayout()) &&
               tableExists(file_.database(), numberLayout());
    }

    void setTargets() {
        for (const StoreKey& key : keys_) stores_.records.push_back(RecordView{key.index, key.storeId});
        for (const auto& [store, entryId] : book_.unreadable)
            unreadable_.emplace(entryId, keys_[store].index);
        for (const std::size_t store : book_.partlyRead) partlyRead_.insert(keys_[store].index);
        numbers_.keeps = [this](const RecordView& row) {
            return partlyRead_.count(row[3]) > 0 || unreadable_.count({row[2], row[3]}) > 0;
        };
        for (const AddressBook::Entry& entry : book_.contacts) {
            goOn(observer_);
            addRows(entry.contact, keys_[entry.store].index);
        }
    }

    /// A contact's rows: its numbers as they stand, and without a name their other forms, each once.
    void addRows(const Contact& contact, const std::wstring& storeKey) {
        std::set<std::wstring_view> written(contact.numbers.begin(), contact.numbers.end());
        for (const std::wstring& number : contact.numbers)
            numbers_.records.push_back(RecordView{contact.name, number, contact.entryId, storeKey});
        for (const std::wstring& number : contact.numbers)
            for (const std::wstring& form : forms_.of(number)) {
                if (written.count(form)) continue;
                const std::wstring_view kept = *written.insert(kept_.keep(form)).first;
                numbers_.records.push_back(RecordView{L"", kept, contact.entryId, storeKey});
            }
    }

    /// What is there is read again before it counts: a row that was misread on the way would have been
    /// removed, and another program may have changed the tables meanwhile.
    void write(Difference stores, Difference numbers) {
        constexpr int kMostRounds = 3;
        Transaction transaction(file_.workspace());
        for (int round = 0;; ++round) {
            if (round == kMostRounds)
                throw Failure{
                    L"The cache does not take what is written to it, and stays as it was. Run fillcache again "
                    L"when no other program works on the cache"};
            apply(stores_, stores, transaction);
            apply(numbers_, numbers, transaction);
            if (file_.isNew()) break;
            stores = compare(file_, stores_, observer_);
            numbers = compare(file_, numbers_, observer_);
            if (!stores.any() && !numbers.any()) break;
        }
        storeMark(file_, book_.isComplete() ? sources_ + L" " + targetsMark() : L"");
        goOn(observer_);
        transaction.commit();
        file_.finish(observer_);
    }

    /// What `rowsMark` gives when nobody else has changed the rows.
    std::wstring targetsMark() const {
        Digest digest;
        for (const Target* target : {&stores_, &numbers_})
            for (const RecordView& record : target->records) digest.add(target->layout.name, record);
        return digest.text();
    }

    void apply(const Target& target, const Difference& difference, Transaction& transaction) {
        const Object& database = file_.database();
        if (file_.isNew() || !tableExists(database, target.layout)) makeTable(database, target.layout);
        if (difference.surplus > 0) remove(target, difference.surplus);
        if (!difference.missing.empty()) add(target, difference.missing, transaction);
    }

    void remove(const Target& target, long surplus) {
        Met met(target.records);
        CacheTable table(file_.database(), target.layout, CacheTable::Use::Remove);
        for (long removed = 0; removed < surplus && !table.atEnd(); table.next()) {
            goOn(observer_);
            const auto row = table.current();
            if (!row || met.meet(*row) || target.keeps(*row)) continue;
            table.remove();
            observer_.progress(L"Removing from the cache", ++removed, surplus);
        }
    }

    /// A new file appears only when it is whole: it needs no transaction that holds all of it in memory.
    void add(const Target& target, const std::vector<const RecordView*>& records, Transaction& transaction) {
        constexpr long kRowsInOne = 5000;
        const CacheTable table(file_.database(), target.layout, CacheTable::Use::Append);
        long added = 0;
        for (const RecordView* record : records) {
            goOn(observer_);
            table.add(*record);
            observer_.progress(L"Writing the cache", ++added, static_cast<long>(records.size()));
            if (file_.isNew() && added % kRowsInOne == 0) transaction.commitAndGoOn();
        }
    }

    /// Texts that stay where they are.
    class Texts {
      public:
        std::wstring_view keep(std::wstring_view text) {
            auto* kept =
                static_cast<wchar_t*>(memory_.allocate(text.size() * sizeof(wchar_t), alignof(wchar_t)));
            std::copy(text.begin(), text.end(), kept);
            return {kept, text.size()};
        }

      private:
        std::pmr::monotonic_buffer_resource memory_;
    };

    CacheFile& file_;
    const AddressBook& book_;
    const numbers::PresentedForms& forms_;
    Observer& observer_;
    std::vector<StoreKey> keys_;
    std::wstring sources_;
    std::set<std::pair<std::wstring_view, std::wstring_view>> unreadable_;
    std::set<std::wstring_view> partlyRead_;
    Texts kept_;
    Target stores_{storeLayout(), {}};
    Target numbers_{numberLayout(), {}};
};

}  // namespace

CacheChange updateCache(CacheFile& file, const AddressBook& book, const numbers::PresentedForms& forms,
                        SynchroFlag& flag, Observer& observer) {
    return Update(file, book, forms, observer).carryOut(flag);
}

}  // namespace filler
