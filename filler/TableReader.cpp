#include "filler/TableReader.h"

#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "filler/Digest.h"
#include "filler/TableColumns.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::Object;

constexpr long kRowsInOneCall = 500;
constexpr wchar_t kIdentifier[] = L"";

/// The item has to be asked for a property.
struct OnlyItemKnows {};

bool isContactClass(const std::wstring& name) {
    static constexpr std::wstring_view kContact = L"IPM.CONTACT";
    std::wstring upper = name;
    for (wchar_t& c : upper)
        if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - (L'a' - L'A'));
    return upper.starts_with(kContact) && (upper.size() == kContact.size() || upper[kContact.size()] == L'.');
}

class Reader {
  public:
    Reader(const Object& session, const OpenFolder& folder, const std::wstring& storeId, Observer& observer,
           const std::function<void(long)>& onRows)
        : session_(session), folder_(folder), storeId_(storeId), observer_(observer), onRows_(onRows) {}

    FolderContacts read() {
        constexpr int kMostTries = 3;
        for (int tries = 0; tries < kMostTries; ++tries) {
            result_ = {};
            fromItems_.clear();
            const Object table = folder_.folder.object(outlook::GetTable);
            if (!readRows(table)) continue;
            requireLastingIdentifiers();

            for (const std::wstring& id : fromItems_) readItem(id);
            return std::move(result_);
        }
        throw TableRefused{L"it changed while it was read"};
    }

  private:
    /// False when the folder has changed meanwhile: a row may have been passed over, and what is not there
    /// would be deleted from the cache.
    bool readRows(const Object& table) {
        const TableColumns columns = TableColumns::forContacts(table);
        std::unordered_set<std::wstring> seen;
        Digest met, again;
        forEachRow(table, [&](const TableBlock& block, std::size_t row) {
            std::wstring id = columns.identifier(block, row);
            if (!seen.insert(id).second) return;
            met.add(kIdentifier, RecordView{id});
            takeRow(columns, block, row, std::move(id));
        });
        // Once more, the identifiers alone.
        const TableColumns identifiers = TableColumns::forIdentifiers(table);
        forEachRow(table, [&](const TableBlock& block, std::size_t row) {
            again.add(kIdentifier, RecordView{identifiers.identifier(block, row)});
        });
        return again == met && static_cast<long>(seen.size()) == folder_.items.integer(outlook::Count);
    }

    template <class Take>
    void forEachRow(const Object& table, Take&& take) {
        while (!table.boolean(outlook::EndOfTable)) {
            goOn(observer_);
            const TableBlock block(table.get(outlook::GetArray, kRowsInOneCall));
            if (block.rows() == 0) return;
            for (std::size_t row = 0; row < block.rows(); ++row) take(block, row);
            onRows_(static_cast<long>(block.rows()));
        }
    }

    void takeRow(const TableColumns& columns, const TableBlock& block, std::size_t row, std::wstring id) {
        const auto kind = columns.text(block, row, kMessageClass);
        if (!kind || kind->empty()) {
            fromItems_.push_back(std::move(id));
            return;
        }
        if (!isContactClass(*kind)) return;
        try {
            result_.contacts.push_back(readContact(id, [&](const zelbar::Member& property) {
                auto text = columns.text(block, row, property);
                if (!text) throw OnlyItemKnows{};
                return *std::move(text);
            }));
        } catch (const OnlyItemKnows&) {
            fromItems_.push_back(std::move(id));
        }
    }

    /// Some stores give rows identifiers for the session alone; in the cache the item's own must stand.
    void requireLastingIdentifiers() const {
        constexpr std::size_t kMostTries = 10;
        for (std::size_t i = 0; i < result_.contacts.size() && i < kMostTries; ++i) {
            const std::wstring& id = result_.contacts[i].entryId;
            try {
                if (open(id).text(outlook::EntryID) == id) return;
                break;
            } catch (const Fault& fault) {
                if (!saysItemGone(fault)) throw;
            }
        }
        if (!result_.contacts.empty()) throw TableRefused{L"its table has identifiers of its own"};
    }

    void readItem(const std::wstring& id) {
        goOn(observer_);
        try {
            const Object item = open(id);
            if (item.objectClass() != outlook::kContact) return;
            result_.contacts.push_back(readContact(item, item.text(outlook::EntryID)));
        } catch (const Fault& fault) {
            if (saysOutlookFailed(fault)) throw;
            if (!saysItemGone(fault)) result_.addUnread(id, fault);
        }
    }

    Object open(const std::wstring& id) const {
        return session_.object(outlook::GetItemFromID, id, storeId_);
    }

    const Object& session_;
    const OpenFolder& folder_;
    const std::wstring& storeId_;
    Observer& observer_;
    const std::function<void(long)>& onRows_;
    FolderContacts result_;
    std::vector<std::wstring> fromItems_;
};

}  // namespace

FolderContacts readTable(const Object& session, const OpenFolder& folder, const std::wstring& storeId,
                         Observer& observer, const std::function<void(long)>& onRows) {
    try {
        return Reader(session, folder, storeId, observer, onRows).read();
    } catch (const Fault& fault) {
        if (saysOutlookFailed(fault)) throw;
        throw TableRefused{fault.description};
    }
}

}  // namespace filler
