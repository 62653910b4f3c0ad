#include "filler/ItemReader.h"

#include <set>

#include "automation/OutlookFaults.h"
#include "automation/OutlookNames.h"
#include "automation/Told.h"

namespace filler {
namespace {

namespace outlook = zelbar::outlook;
using zelbar::Fault;
using zelbar::Object;

void readItem(const OpenFolder& folder, long position, std::set<std::wstring>& seen, FolderContacts& result) {
    std::wstring id;
    try {
        const Object item = folder.items.object(outlook::ItemAt, position);
        if (item.objectClass() != outlook::kContact) return;
        id = told(item, outlook::EntryID).text();
        if (seen.insert(id).second) result.contacts.push_back(readContact(item, id));
    } catch (const Fault& fault) {
        if (saysOutlookFailed(fault)) throw;
        // So many have been deleted meanwhile that nothing stands at this position.
        if (id.empty() && told(folder.items, outlook::Count).integer() < position) return;
        result.addUnread(id, fault);
    }
}

}  // namespace

FolderContacts readItems(const OpenFolder& folder, Observer& observer, const std::function<void()>& onItem) {
    FolderContacts result;
    std::set<std::wstring> seen;
    // From the last to the first: when somebody deletes an item meanwhile, one that has been read is met
    // again and none is passed over.
    for (long position = folder.count; position >= 1; --position) {
        goOn(observer);
        readItem(folder, position, seen, result);
        onItem();
    }
    return result;
}

}  // namespace filler
