#include "standin/outlook/mailbox/Mailbox.h"

#include "standin/outlook/mailbox/ContactNames.h"
#include "standin/outlook/mailbox/Schema.h"
#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook {
namespace {

constexpr const char* kStoreColumns =
    "SELECT s.id, s.name, s.uid, s.isDefault, f.id FROM stores s JOIN folders f ON f.store = s.id AND "
    "f.parent IS NULL ";

StoreRecord readStore(const Query& query) {
    return {.id = query.number(0),
            .name = query.text(1),
            .uid = query.text(2),
            .isDefault = query.number(3) != 0,
            .root = query.number(4)};
}

struct SpecialFolderKind {
    SpecialFolder special;
    const wchar_t* name;
    ItemType type;
};

constexpr SpecialFolderKind kSpecialFolders[] = {
    {SpecialFolder::DeletedItems, L"Deleted Items", ItemType::Mail},
    {SpecialFolder::Inbox, L"Inbox", ItemType::Mail},
    {SpecialFolder::Outbox, L"Outbox", ItemType::Mail},
    {SpecialFolder::SentMail, L"Sent Items", ItemType::Mail},
    {SpecialFolder::Calendar, L"Calendar", ItemType::Appointment},
    {SpecialFolder::Contacts, L"Contacts", ItemType::Contact},
    {SpecialFolder::Drafts, L"Drafts", ItemType::Mail},
    {SpecialFolder::Journal, L"Journal", ItemType::Journal},
    {SpecialFolder::Notes, L"Notes", ItemType::Note},
    {SpecialFolder::Tasks, L"Tasks", ItemType::Task},
};

}  // namespace

Mailbox::Mailbox(const std::filesystem::path& file) : database_(file) {
    prepareSchema(database_);
    Transaction transaction(database_);
    if (stores().empty()) {
        const StoreRecord store = insertStore(L"Personal Folders", true);
        for (const SpecialFolderKind& kind : kSpecialFolders) specialFolder(kind.special, store.id);
    }
    transaction.commit();
}

std::vector<StoreRecord> Mailbox::stores() {
    std::vector<StoreRecord> stores;
    Query query(database_, std::string(kStoreColumns) + "ORDER BY s.isDefault DESC, s.id");
    while (query.next()) stores.push_back(readStore(query));
    return stores;
}

StoreRecord Mailbox::store(RowId id) {
    Query query(database_, std::string(kStoreColumns) + "WHERE s.id = ?");
    if (!query.bind(id).next()) throw DatabaseError("the store has gone");
    return readStore(query);
}

StoreRecord Mailbox::defaultStore() {
    Query query(database_, std::string(kStoreColumns) + "WHERE s.isDefault = 1");
    if (!query.next()) throw DatabaseError("the mailbox has no default store");
    return readStore(query);
}

std::optional<StoreRecord> Mailbox::findStore(std::wstring_view name) {
    for (StoreRecord& store : stores()) {
        if (sameText(store.name, name)) return std::move(store);
    }
    return {};
}

std::optional<StoreRecord> Mailbox::findStoreByUid(std::wstring_view uid) {
    Query query(database_, std::string(kStoreColumns) + "WHERE s.uid = ?");
    if (!query.bind(uid).next()) return {};
    return readStore(query);
}

StoreRecord Mailbox::insertStore(std::wstring_view name, bool isDefault) {
    const std::wstring uid = newStoreUid();
    Query(database_, "INSERT INTO stores(name, uid, isDefault) VALUES(?, ?, ?)")
        .bind(name)
        .bind(uid)
        .bind(isDefault ? 1 : 0)
        .run();
    const RowId id = database_.lastInserted();
    FolderRecord root;
    root.store = id;
    root.name = name;
    insertFolder(root);
    return store(id);
}

StoreRecord Mailbox::addStore(std::wstring_view name) {
    Transaction transaction(database_);
    StoreRecord store = insertStore(name, false);
    specialFolder(SpecialFolder::DeletedItems, store.id);
    transaction.commit();
    return store;
}

void Mailbox::removeStore(RowId store) {
    Query(database_, "DELETE FROM stores WHERE id = ?").bind(store).run();
}

FolderRecord Mailbox::specialFolder(SpecialFolder special, RowId storeId) {
    Query query(database_, "SELECT id FROM folders WHERE store = ? AND special = ?");
    if (query.bind(storeId).bind(static_cast<RowId>(special)).next()) return *folder(query.number(0));
    for (const SpecialFolderKind& kind : kSpecialFolders) {
        if (kind.special != special) continue;
        FolderRecord record;
        record.store = storeId;
        record.parent = store(storeId).root;
        record.name = kind.name;
        record.type = kind.type;
        record.special = special;
        return insertFolder(record);
    }
    throw DatabaseError("no such default folder");
}

ItemRecord Mailbox::addContact(RowId folder, Fields fields) {
    ItemRecord contact;
    contact.folder = folder;
    contact.type = ItemType::Contact;
    contact.fields = std::move(fields);
    const bool hasParts = contact.fields.contains(L"FirstName") || contact.fields.contains(L"LastName");
    if (!hasParts) setFullName(contact.fields, contact.field(L"FullName"));
    completeNames(contact.fields);
    save(contact);
    return contact;
}

ItemRecord Mailbox::addDistributionList(RowId folder, std::wstring_view name) {
    ItemRecord list;
    list.folder = folder;
    list.type = ItemType::DistributionList;
    list.fields[L"Subject"] = list.fields[L"DLName"] = name;
    save(list);
    return list;
}

void Mailbox::setPicture(ItemRecord& contact, Bytes image) {
    std::erase_if(contact.attachments,
                  [](const Attachment& a) { return sameText(a.fileName, kPictureName); });
    contact.attachments.push_back({kPictureName, kPictureName, std::move(image)});
    save(contact);
}

void Mailbox::setUserProperty(ItemRecord& item, std::wstring_view name, long type, std::wstring_view value) {
    std::erase_if(item.userProperties, [&](const UserProperty& p) { return sameText(p.name, name); });
    item.userProperties.push_back({std::wstring(name), type, std::wstring(value)});
    save(item);
}

std::wstring Mailbox::storeId(RowId id) {
    return storeIdOf(store(id).uid);
}

std::wstring Mailbox::storeUidOfFolder(RowId folderId) {
    Query query(database_, "SELECT s.uid FROM folders f JOIN stores s ON s.id = f.store WHERE f.id = ?");
    if (!query.bind(folderId).next()) throw DatabaseError("the folder has gone");
    return query.text(0);
}

std::wstring Mailbox::entryId(const FolderRecord& folder) {
    return entryIdOf({storeUidOfFolder(folder.id), EntryKind::Folder, folder.id});
}

std::wstring Mailbox::entryId(const ItemRecord& item) {
    if (item.id == 0) return L"";
    return entryIdOf({storeUidOfFolder(item.folder), EntryKind::Item, item.id});
}

}  // namespace standin::outlook
