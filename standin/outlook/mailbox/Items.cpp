// The mailbox's items.
#include "standin/outlook/mailbox/Mailbox.h"

namespace standin::outlook {

std::vector<RowId> Mailbox::items(RowId folder) {
    std::vector<RowId> ids;
    Query query(database_, "SELECT id FROM items WHERE folder = ? ORDER BY id");
    query.bind(folder);
    while (query.next()) ids.push_back(query.number(0));
    return ids;
}

std::optional<ItemRecord> Mailbox::item(RowId id) {
    Query query(database_, "SELECT folder, type, hasParts FROM items WHERE id = ?");
    if (!query.bind(id).next()) return {};
    ItemRecord item;
    item.id = id;
    item.folder = query.number(0);
    item.type = static_cast<ItemType>(query.number(1));
    Query fields(database_, "SELECT name, value FROM fields WHERE item = ?");
    fields.bind(id);
    while (fields.next()) item.fields.emplace(fields.text(0), fields.text(1));
    if (query.number(2) != 0) loadParts(item);
    return item;
}

void Mailbox::loadParts(ItemRecord& item) {
    Query properties(database_,
                     "SELECT name, type, value FROM userProperties WHERE item = ? ORDER BY position");
    properties.bind(item.id);
    while (properties.next()) {
        item.userProperties.push_back(
            {properties.text(0), static_cast<long>(properties.number(1)), properties.text(2)});
    }
    Query attachments(database_,
                      "SELECT displayName, fileName, data FROM attachments WHERE item = ? ORDER BY position");
    attachments.bind(item.id);
    while (attachments.next()) {
        item.attachments.push_back({attachments.text(0), attachments.text(1), attachments.data(2)});
    }
    Query recipients(database_, "SELECT name, type FROM recipients WHERE item = ? ORDER BY position");
    recipients.bind(item.id);
    while (recipients.next()) {
        item.recipients.push_back({recipients.text(0), static_cast<long>(recipients.number(1))});
    }
}

bool Mailbox::save(ItemRecord& item) {
    const bool hasParts =
        !item.userProperties.empty() || !item.attachments.empty() || !item.recipients.empty();
    Transaction transaction(database_);
    if (item.id == 0) {
        Query(database_, "INSERT INTO items(folder, type, hasParts) VALUES(?, ?, ?)")
            .bind(item.folder)
            .bind(static_cast<RowId>(item.type))
            .bind(hasParts ? 1 : 0)
            .run();
        item.id = database_.lastInserted();
    } else {
        Query existing(database_, "SELECT folder FROM items WHERE id = ?");
        if (!existing.bind(item.id).next()) return false;
        item.folder = existing.number(0);
        Query(database_, "UPDATE items SET hasParts = ? WHERE id = ?")
            .bind(hasParts ? 1 : 0)
            .bind(item.id)
            .run();
        for (const char* table : {"fields", "userProperties", "attachments", "recipients"}) {
            Query(database_, std::string("DELETE FROM ") + table + " WHERE item = ?").bind(item.id).run();
        }
    }
    for (const auto& [name, value] : item.fields) {
        if (value.empty()) continue;
        Query(database_, "INSERT INTO fields(item, name, value) VALUES(?, ?, ?)")
            .bind(item.id)
            .bind(name)
            .bind(value)
            .run();
    }
    insertParts(item);
    transaction.commit();
    return true;
}

void Mailbox::insertParts(const ItemRecord& item) {
    RowId position = 0;
    for (const UserProperty& property : item.userProperties) {
        Query(database_,
              "INSERT INTO userProperties(item, position, name, type, value) VALUES(?, ?, ?, ?, ?)")
            .bind(item.id)
            .bind(++position)
            .bind(property.name)
            .bind(property.type)
            .bind(property.value)
            .run();
    }
    for (const Attachment& attachment : item.attachments) {
        Query(database_,
              "INSERT INTO attachments(item, position, displayName, fileName, data) VALUES(?, ?, ?, ?, ?)")
            .bind(item.id)
            .bind(++position)
            .bind(attachment.displayName)
            .bind(attachment.fileName)
            .bind(attachment.data)
            .run();
    }
    for (const Recipient& recipient : item.recipients) {
        Query(database_, "INSERT INTO recipients(item, position, name, type) VALUES(?, ?, ?, ?)")
            .bind(item.id)
            .bind(++position)
            .bind(recipient.name)
            .bind(recipient.type)
            .run();
    }
}

RowId Mailbox::moveItem(RowId id, RowId target) {
    std::optional<ItemRecord> moved = item(id);
    if (!moved) throw DatabaseError("the item has gone");
    if (folder(moved->folder)->store == folder(target)->store) {
        Query(database_, "UPDATE items SET folder = ? WHERE id = ?").bind(target).bind(id).run();
        return id;
    }
    Transaction transaction(database_);
    moved->id = 0;
    moved->folder = target;
    save(*moved);
    eraseItem(id);
    transaction.commit();
    return moved->id;
}

void Mailbox::eraseItem(RowId item) {
    Query(database_, "DELETE FROM items WHERE id = ?").bind(item).run();
}

void Mailbox::eraseItemsOf(RowId folder) {
    Query(database_, "DELETE FROM items WHERE folder = ?").bind(folder).run();
}

}  // namespace standin::outlook
