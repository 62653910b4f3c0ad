#include "standin/outlook/objects/Items.h"

#include <algorithm>

#include "standin/common/Enumerator.h"
#include "standin/outlook/mailbox/Text.h"
#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Folders.h"
#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

const MemberTable& Items::members() const {
    using Self = Items;
    static const MemberTable table(L"Items",
                                   {
                                       readOnly<&Self::count>(L"Count", 0x50),
                                       method<&Self::item>(L"Item", 0x51, 1),
                                       method<&Self::add>(L"Add", 0x5F, 0, 1),
                                       method<&Self::remove>(L"Remove", 0x54, 1),
                                       method<&Self::sort>(L"Sort", 0x61, 1, 2),
                                       method<&Self::getFirst>(L"GetFirst", 0x56),
                                       method<&Self::getLast>(L"GetLast", 0x58),
                                       method<&Self::getNext>(L"GetNext", 0x57),
                                       method<&Self::getPrevious>(L"GetPrevious", 0x59),
                                       readOnly<&Self::newEnum>(L"_NewEnum", DISPID_NEWENUM),
                                   },
                                   L"Item", &commonMembers());
    return table;
}

Ref<Object> Items::parent() {
    return makeOf<Folder>(*this, folder_);
}

const std::vector<RowId>& Items::rows() {
    const long now = mailbox().version();
    if (now != version_) {
        if (!mailbox().folder(folder_)) throw notFound(server());
        rows_ = sortField_.empty() ? mailbox().items(folder_)
                                   : mailbox().itemsSorted(folder_, sortField_, descending_);
        version_ = now;
    }
    return rows_;
}

Ref<Object> Items::at(long position) {
    const std::vector<RowId>& all = rows();
    if (position < 1 || position > static_cast<long>(all.size())) throw outOfBounds(server());
    return openItem(sharedSession(), all[static_cast<std::size_t>(position) - 1]);
}

Ref<Object> Items::item(const Arguments& arguments) {
    if (arguments[0].vt != VT_BSTR) return at(arguments.number(0));
    const std::wstring subject = arguments.text(0);
    for (const RowId row : rows()) {
        const std::optional<ItemRecord> record = mailbox().item(row);
        if (record &&
            (sameText(record->field(L"Subject"), subject) || sameText(record->field(L"FullName"), subject))) {
            return openItem(sharedSession(), row);
        }
    }
    throw notFound(server());
}

Ref<Object> Items::add(const Arguments& arguments) {
    const std::optional<FolderRecord> folder = mailbox().folder(folder_);
    if (!folder) throw notFound(server());
    const long type = arguments.number(0, static_cast<long>(folder->type));
    return newItem(sharedSession(), static_cast<ItemType>(type), folder_);
}

void Items::remove(const Arguments& arguments) {
    const std::vector<RowId>& all = rows();
    const long position = arguments.number(0);
    if (position < 1 || position > static_cast<long>(all.size())) throw outOfBounds(server());
    deleteItem(session(), *session().open(all[static_cast<std::size_t>(position) - 1]));
}

void Items::sort(const Arguments& arguments) {
    sortField_ = arguments.text(0);
    if (sortField_.size() > 1 && sortField_.front() == L'[')
        sortField_ = sortField_.substr(1, sortField_.size() - 2);
    descending_ = arguments.has(1) && toBool(arguments[1]);
    version_ = -1;
    position_ = 0;
}

Ref<Object> Items::step(long position) {
    position_ = std::clamp(position, 0L, count() + 1);
    return position_ >= 1 && position_ <= count() ? at(position_) : Ref<Object>();
}

Ref<IEnumVARIANT> Items::newEnum() {
    const Ref<Items> self(this);
    return makeEnumerator(
        server(), [self] { return self->count(); },
        [self](long position) { return toValue(self->at(position)); });
}

}  // namespace standin::outlook
