#pragma once

#include <functional>
#include <optional>

#include "standin/outlook/mailbox/EntryId.h"
#include "standin/outlook/mailbox/Records.h"

namespace standin::outlook {

// The mailbox file: stores, their folders, and the items that have been saved.
// Other processes may change the file at any time. Everything throws DatabaseError when the file fails.
class Mailbox {
  public:
    // Makes the file, with the default store "Personal Folders" and its usual folders, when it is missing.
    explicit Mailbox(const std::filesystem::path& file);

    // Changes whenever the file does.
    long version() { return database_.version(); }
    Database& database() noexcept { return database_; }

    // Stores
    std::vector<StoreRecord> stores();
    StoreRecord store(RowId id);
    StoreRecord defaultStore();
    std::optional<StoreRecord> findStore(std::wstring_view name);
    std::optional<StoreRecord> findStoreByUid(std::wstring_view uid);
    // A new store has a root folder and "Deleted Items" only.
    StoreRecord addStore(std::wstring_view name);
    // With all that is in it.
    void removeStore(RowId store);

    // Folders
    std::optional<FolderRecord> folder(RowId id);
    std::vector<FolderRecord> subfolders(RowId parent);
    // Names are compared without case.
    std::optional<FolderRecord> findFolder(RowId parent, std::wstring_view name);
    // The default store's folder, or another store's; made when missing.
    FolderRecord specialFolder(SpecialFolder special) { return specialFolder(special, defaultStore().id); }
    FolderRecord specialFolder(SpecialFolder special, RowId store);
    FolderRecord addFolder(RowId parent, std::wstring_view name, ItemType type);
    // Folder by names separated by backslashes below the store's root; made when missing.
    FolderRecord ensureFolder(const StoreRecord& store, std::wstring_view path, ItemType type);
    void renameFolder(RowId folder, std::wstring_view name);
    void moveFolder(RowId folder, RowId newParent);
    // For good, with all that is in it.
    void eraseFolder(RowId folder);
    // True for Deleted Items and everything below it.
    bool isDeleted(RowId folder);

    // Items
    std::vector<RowId> items(RowId folder);
    std::optional<ItemRecord> item(RowId id);
    // Inserts or updates; a new item gets its id. False when the item has been erased meanwhile.
    bool save(ItemRecord& item);
    // Within a store the item keeps its identity, in another store it gets a new one. Returns the id it has
    // then.
    RowId moveItem(RowId item, RowId folder);
    // For good.
    void eraseItem(RowId item);
    void eraseItemsOf(RowId folder);

    // Ready-made content. Fields are Outlook's property names; names, "FullName", "FileAs" follow from each
    // other as in Outlook.
    ItemRecord addContact(RowId folder, Fields fields);
    ItemRecord addDistributionList(RowId folder, std::wstring_view name);
    void setPicture(ItemRecord& contact, Bytes image);
    void setUserProperty(ItemRecord& item, std::wstring_view name, long type, std::wstring_view value);

    // Identities
    std::wstring storeId(RowId store);
    std::wstring entryId(const FolderRecord& folder);
    std::wstring entryId(const ItemRecord& item);

  private:
    FolderRecord insertFolder(const FolderRecord& folder);
    StoreRecord insertStore(std::wstring_view name, bool isDefault);
    void insertParts(const ItemRecord& item);
    void loadParts(ItemRecord& item);
    std::wstring storeUidOfFolder(RowId folder);

    Database database_;
};

}  // namespace standin::outlook
