// The mailbox's folders.
#include "standin/outlook/mailbox/Mailbox.h"
#include "standin/outlook/mailbox/Text.h"

namespace standin::outlook {
namespace {

constexpr const char* kFolderColumns = "SELECT id, store, parent, name, type, special FROM folders ";

FolderRecord readFolder(const Query& query) {
    return {.id = query.number(0),
            .store = query.number(1),
            .parent = query.number(2),
            .name = query.text(3),
            .type = static_cast<ItemType>(query.number(4)),
            .special = static_cast<SpecialFolder>(query.number(5))};
}

}  // namespace

std::optional<FolderRecord> Mailbox::folder(RowId id) {
    Query query(database_, std::string(kFolderColumns) + "WHERE id = ?");
    if (!query.bind(id).next()) return {};
    return readFolder(query);
}

std::vector<FolderRecord> Mailbox::subfolders(RowId parent) {
    std::vector<FolderRecord> folders;
    Query query(database_, std::string(kFolderColumns) + "WHERE parent = ? ORDER BY id");
    query.bind(parent);
    while (query.next()) folders.push_back(readFolder(query));
    return folders;
}

std::optional<FolderRecord> Mailbox::findFolder(RowId parent, std::wstring_view name) {
    for (FolderRecord& folder : subfolders(parent)) {
        if (sameText(folder.name, name)) return std::move(folder);
    }
    return {};
}

FolderRecord Mailbox::insertFolder(const FolderRecord& folder) {
    Query(database_,
          "INSERT INTO folders(store, parent, name, type, special) VALUES(?, nullif(?, 0), ?, ?, ?)")
        .bind(folder.store)
        .bind(folder.parent)
        .bind(folder.name)
        .bind(static_cast<RowId>(folder.type))
        .bind(static_cast<RowId>(folder.special))
        .run();
    FolderRecord inserted = folder;
    inserted.id = database_.lastInserted();
    return inserted;
}

FolderRecord Mailbox::addFolder(RowId parent, std::wstring_view name, ItemType type) {
    const std::optional<FolderRecord> above = folder(parent);
    if (!above) throw DatabaseError("the parent folder has gone");
    FolderRecord record;
    record.store = above->store;
    record.parent = parent;
    record.name = name;
    record.type = type;
    return insertFolder(record);
}

FolderRecord Mailbox::ensureFolder(const StoreRecord& store, std::wstring_view path, ItemType type) {
    FolderRecord current = *folder(store.root);
    while (!path.empty()) {
        const std::size_t end = path.find(L'\\');
        const std::wstring_view name = path.substr(0, end);
        path = end == std::wstring_view::npos ? std::wstring_view() : path.substr(end + 1);
        if (name.empty()) continue;
        std::optional<FolderRecord> found = findFolder(current.id, name);
        current = found ? *found : addFolder(current.id, name, type);
    }
    return current;
}

void Mailbox::renameFolder(RowId folder, std::wstring_view name) {
    Query(database_, "UPDATE folders SET name = ? WHERE id = ?").bind(name).bind(folder).run();
    // The root folder shows its store's name.
    Query(database_,
          "UPDATE stores SET name = ? WHERE id = (SELECT store FROM folders WHERE id = ? AND parent IS NULL)")
        .bind(name)
        .bind(folder)
        .run();
}

void Mailbox::moveFolder(RowId folder, RowId newParent) {
    Query(database_, "UPDATE folders SET parent = ? WHERE id = ?").bind(newParent).bind(folder).run();
}

void Mailbox::eraseFolder(RowId folder) {
    Query(database_, "DELETE FROM folders WHERE id = ?").bind(folder).run();
}

bool Mailbox::isDeleted(RowId id) {
    for (std::optional<FolderRecord> current = folder(id); current; current = folder(current->parent)) {
        if (current->special == SpecialFolder::DeletedItems) return true;
    }
    return false;
}

}  // namespace standin::outlook
