#include "standin/outlook/objects/NameSpace.h"

#include "standin/outlook/objects/Errors.h"
#include "standin/outlook/objects/Folders.h"
#include "standin/outlook/objects/Item.h"

namespace standin::outlook {

const MemberTable& NameSpace::members() const {
    using Self = NameSpace;
    static const MemberTable table(L"NameSpace",
                                   {
                                       readOnly<&Self::type>(L"Type", 0x2104),
                                       readOnly<&Self::folders>(L"Folders", 0x2103),
                                       method<&Self::getDefaultFolder>(L"GetDefaultFolder", 0x210B, 1),
                                       method<&Self::getFolderFromId>(L"GetFolderFromID", 0x2108, 1, 2),
                                       method<&Self::getItemFromId>(L"GetItemFromID", 0x2109, 1, 2),
                                   },
                                   nullptr, &commonMembers());
    return table;
}

Ref<Object> NameSpace::folders() {
    return makeOf<FolderList>(*this, 0);
}

Ref<Object> NameSpace::getDefaultFolder(const Arguments& arguments) {
    const auto special = static_cast<SpecialFolder>(arguments.number(0));
    if (!isSpecialFolder(special)) throw badParameter(server());
    return makeOf<Folder>(*this, mailbox().specialFolder(special).id);
}

Ref<Object> NameSpace::getFolderFromId(const Arguments& arguments) {
    return makeOf<Folder>(*this, resolve(arguments, EntryKind::Folder));
}

Ref<Object> NameSpace::getItemFromId(const Arguments& arguments) {
    return openItem(sharedSession(), resolve(arguments, EntryKind::Item));
}

StoreRecord NameSpace::storeOf(const Arguments& arguments) {
    if (!arguments.has(1)) return mailbox().defaultStore();
    const std::wstring id = arguments.text(1);
    if (!isHexadecimal(id)) throw badParameter(server());
    const std::optional<std::wstring> uid = parseStoreId(id);
    if (!uid) throw invalidEntryId(server());
    const std::optional<StoreRecord> store = mailbox().findStoreByUid(*uid);
    if (!store) throw storeNotOpen(server());
    return *store;
}

RowId NameSpace::resolve(const Arguments& arguments, EntryKind kind) {
    const std::wstring id = arguments.text(0);
    if (!isHexadecimal(id)) throw badParameter(server());
    const StoreRecord store = storeOf(arguments);
    const std::optional<EntryName> name = parseEntryId(id);
    if (!name) throw invalidEntryId(server());
    if (name->storeUid != store.uid || name->kind != kind) throw notFound(server());
    if (kind == EntryKind::Folder && !mailbox().folder(name->row)) throw notFound(server());
    return name->row;
}

}  // namespace standin::outlook
