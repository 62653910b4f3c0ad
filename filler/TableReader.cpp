#include "filler/TableReader.h"

#include <optional>
#include <utility>
#include <vector>

#include "automation/FolderTable.h"
#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "support/TelephoneNumbers.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::FolderTable;
using zelbar::Object;

/// The item has to be asked for a property.
struct OnlyItemKnows {};

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
            if (!readRows()) continue;
            requireLastingIdentifiers();

            for (const std::wstring& id : fromItems_) readItem(id);
            return std::move(result_);
        }
        throw TableRefused{L"it changed while it was read"};
    }

  private:
    /// False when the folder has changed meanwhile: a row may have been passed over, and what is not there
    /// would be deleted from the cache.
    bool readRows() {
        FolderTable::Names needed{outlook::MessageClass.name, outlook::LastName.name, outlook::FirstName.name,
                                  outlook::CompanyName.name};
        for (const zelbar::TelephoneProperty& telephone : zelbar::kTelephoneProperties)
            needed.push_back(telephone.member.name);
        // The last one is needed for the few contacts without any other name, and read from them where it is
        // refused.
        FolderTable table(folder_.folder, needed, {outlook::FileAs.name});
        const auto fetch = [&] {
            goOn(observer_);
            zelbar::VariantGrid block = table.next();
            if (block.rows() > 0) onRows_(static_cast<long>(block.rows()));
            return block;
        };
        const auto count = table.walk(fetch, [this](const FolderTable::Row& row) { takeRow(row); });
        return count && static_cast<long>(*count) == folder_.items.integer(outlook::Count);
    }

    void takeRow(const FolderTable::Row& row) {
        const auto kind = row.text(outlook::MessageClass.name);
        if (!kind || kind->empty()) {
            fromItems_.push_back(row.identifier());
            return;
        }
        if (!zelbar::isContactClass(*kind)) return;
        try {
            result_.contacts.push_back(readContact(row.identifier(), [&](const zelbar::Member& property) {
                auto text = row.text(property.name);
                if (!text) throw OnlyItemKnows{};
                return *std::move(text);
            }));
        } catch (const OnlyItemKnows&) {
            fromItems_.push_back(row.identifier());
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
