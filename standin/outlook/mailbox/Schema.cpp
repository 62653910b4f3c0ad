#include "standin/outlook/mailbox/Schema.h"

namespace standin::outlook {
namespace {

constexpr RowId kVersion = 1;

// Row numbers are part of the identifiers that clients keep, so they are never used twice.
constexpr const char* kTables = R"sql(
CREATE TABLE stores(
    id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL, uid TEXT NOT NULL UNIQUE, isDefault INTEGER NOT NULL);
CREATE TABLE folders(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    store INTEGER NOT NULL REFERENCES stores(id) ON DELETE CASCADE,
    parent INTEGER REFERENCES folders(id) ON DELETE CASCADE,
    name TEXT NOT NULL, type INTEGER NOT NULL, special INTEGER NOT NULL);
CREATE INDEX foldersByParent ON folders(parent);
CREATE INDEX foldersByStore ON folders(store);
CREATE TABLE items(
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    folder INTEGER NOT NULL REFERENCES folders(id) ON DELETE CASCADE,
    type INTEGER NOT NULL,
    hasParts INTEGER NOT NULL);
CREATE INDEX itemsByFolder ON items(folder);
CREATE TABLE fields(
    item INTEGER NOT NULL REFERENCES items(id) ON DELETE CASCADE, name TEXT NOT NULL, value TEXT NOT NULL,
    PRIMARY KEY(item, name)) WITHOUT ROWID;
CREATE TABLE userProperties(
    item INTEGER NOT NULL REFERENCES items(id) ON DELETE CASCADE, position INTEGER NOT NULL,
    name TEXT NOT NULL, type INTEGER NOT NULL, value TEXT NOT NULL, PRIMARY KEY(item, position)) WITHOUT ROWID;
CREATE TABLE attachments(
    item INTEGER NOT NULL REFERENCES items(id) ON DELETE CASCADE, position INTEGER NOT NULL,
    displayName TEXT NOT NULL, fileName TEXT NOT NULL, data BLOB NOT NULL, PRIMARY KEY(item, position));
CREATE TABLE recipients(
    item INTEGER NOT NULL REFERENCES items(id) ON DELETE CASCADE, position INTEGER NOT NULL,
    name TEXT NOT NULL, type INTEGER NOT NULL, PRIMARY KEY(item, position)) WITHOUT ROWID;
PRAGMA user_version = 1;
)sql";

RowId pragma(Database& database, const char* sql) {
    Query query(database, sql);
    return query.next() ? query.number(0) : 0;
}

}  // namespace

void prepareSchema(Database& database) {
    database.run("PRAGMA foreign_keys = ON; PRAGMA synchronous = OFF; PRAGMA cache_size = -16384");
    if (pragma(database, "PRAGMA user_version") == kVersion) return;
    Transaction transaction(database);
    // Another process may have made the tables while this one waited for the lock.
    if (pragma(database, "PRAGMA user_version") == kVersion) return;
    if (pragma(database, "SELECT count(*) FROM sqlite_master") > 0) {
        throw DatabaseError("the mailbox file belongs to another program or version");
    }
    database.run(kTables);
    transaction.commit();
}

}  // namespace standin::outlook
