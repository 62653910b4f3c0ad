#include "standin/outlook/objects/Items.h"

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
        rows_ = mailbox().items(folder_);
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

Ref<IEnumVARIANT> Items::newEnum() {
    const Ref<Items> self(this);
    return makeEnumerator(
        server(), [self] { return self->count(); },
        [self](long position) { return toValue(self->at(position)); });
}

}  // namespace standin::outlook
